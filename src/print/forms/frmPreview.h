// "Nyomtatás előnézet": shows a document page by page and starts printing and saving. The document belongs to
// its owner and is the same after a print that went wrong.
#pragma once

#include "foundation/dialogue.h"
#include "platform/fault.h"
#include "print/forms/preview_area.h"
#include "print/forms/save_question.h"
#include "print/qc_printer.h"

#include <QDialog>

class QComboBox;
class QLabel;
class QPushButton;

namespace vandrel {

class FieldChain;

// What the preview asks of its environment.
struct PreviewPorts {
    Dialogue* dialogue = nullptr;
    // Told of faults of printing and saving; empty: they are shown in a box.
    std::function<void(const Fault&)> fault = {};
    AskSavePath askSavePath = vandrel::askSavePath;
    QString saveFolder = {}; // of the last saved file; empty: the user's documents
};

class frmPreview : public QDialog {
    Q_OBJECT

  public:
    // Takes the total of pages from the document, paginating it if that is due. Both outlive the window.
    frmPreview(qcPrinter& document, PreviewPorts& ports, QWidget* parent = nullptr);

    qcPrinter& Document() const { return m_document; }
    int page() const { return m_page; }
    int pages() const { return m_total; }
    float zoom() const { return m_zoom; }
    PreviewArea& area() const { return *m_area; }

    void Preview_Display(int page);

  public Q_SLOTS:
    void reject() override; // Esc, "Bezár" and the window's own cross

  protected:
    void showEvent(QShowEvent* event) override;
    void closeEvent(QCloseEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    QWidget* makeStrip();
    void makeKeys();
    void Preview_Status();
    void drawPage(PageTarget& picture);
    void goTo(int page);
    void zoomChosen(int entry);
    void zoomTyped();
    void showZoom();
    void setZoom(float zoom);
    void print();
    void savePdf();
    void saveTable();
    // nullopt: the user has given up.
    std::optional<SaveAnswer> askWhere(const QString& title, const QStringList& filters,
                                       const QStringList& endings);
    void saveAsPdf(const QString& title, int startPage, int endPage, int copies, bool collate);
    // What a fault is called in its box.
    enum class Work { printing, pdf, table };
    bool work(Work what, const std::function<bool()>& job);
    void tell(const Fault& fault, Work what = Work::printing);

    qcPrinter& m_document;
    PreviewPorts& m_ports;
    FieldChain* m_chain;
    int m_page = 1;
    int m_total;
    float m_zoom = 100;
    bool m_changing = false; // the form itself changes the zoom list: no reaction
    bool m_up = false;       // the window is up
    bool m_printing = false;

    PreviewArea* m_area;
    QWidget* m_strip;
    QPushButton *m_previous, *m_next, *m_print, *m_close, *m_pdf, *m_table;
    QLabel *m_status, *m_note;
    QComboBox* m_zooms;
};

// Shows a document modally where the window was last, and keeps its placement in the document.
void showPreview(qcPrinter& document, PreviewPorts& ports);
// Makes the preview and the hourglass the engine's own.
void installPreview(PrintEngine& engine, PreviewPorts ports);
void installPreview(PrintEngine& engine, Dialogue& dialogue);

} // namespace vandrel
