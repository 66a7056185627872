// "Nyomtató beállítás": which printer, which pages, how many copies. Its properties are set before it is
// shown and read afterwards; it prints nothing itself.
#pragma once

#include "foundation/dialogue.h"
#include "print/page_range.h"
#include "print/print_engine.h"

#include <QDialog>

class QCheckBox;
class QComboBox;
class QGroupBox;
class QLabel;
class QLineEdit;
class QPushButton;
class QRadioButton;

namespace vandrel {

class FieldChain;

class frmPrint : public QDialog {
    Q_OBJECT

  public:
    // The printers of the engine are offered, the one in use is selected; after them "PDF fájl".
    frmPrint(const PrintEngine& engine, Dialogue& dialogue, QWidget* parent = nullptr);

    // In, before showing.
    void setPageCurrent(int page);
    void setPageMax(int total);
    void setPrintOptions(long bits); // bit 1: choice of printer; bit 2: copies and collation

    int PageCurrent() const { return m_current; }
    int PageMax() const { return m_total; }

    // Out.
    int PageStart() const { return m_range.start; }
    int PageEnd() const { return m_range.end; }
    int Copies() const; // 0 for an empty field
    bool Collate() const;
    int PrinterNumber() const; // the one in use, where none was chosen
    bool ToPdf() const;        // "PDF fájl" was chosen: into a file instead
    bool PrintDoc() const { return m_printDoc; }

  protected:
    void keyPressEvent(QKeyEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    QWidget* makePrinterFrame(const PrintEngine& engine);
    QWidget* makePagesFrame();
    QWidget* makeCopiesFrame();
    QWidget* makeButtons();
    void chainFields();
    PageChoice choice() const;
    void optionChosen();
    void pressed();

    Dialogue& m_dialogue;
    FieldChain* m_chain;
    int m_printerInUse;
    int m_current = 1;
    int m_total = 1;
    PageRange m_range;
    bool m_printDoc = false;

    QGroupBox *m_printerFrame, *m_copiesFrame;
    QComboBox* m_printers;
    QRadioButton *m_all, *m_thisPage, *m_rangeOption;
    QLabel* m_pages;
    QLineEdit *m_from, *m_to, *m_copies;
    QCheckBox* m_collate;
    QWidget* m_picture;
    QPushButton *m_print, *m_cancel;
};

// The small picture of how the copies will lie: with collation two stacks of the pages 1 to 3, without it
// three stacks of two, each of one page.
class CopiesPicture : public QWidget {
  public:
    explicit CopiesPicture(const QCheckBox& collate, QWidget* parent = nullptr);

  protected:
    void paintEvent(QPaintEvent* event) override;

  private:
    const QCheckBox& m_collate;
};

} // namespace vandrel
