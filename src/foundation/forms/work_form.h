// What every working form does: the form-open protocol (it is shown beside its opener, which stays disabled
// until the form closes), Esc, and the guard around a run of its work. Knows no particular form.
#pragma once

#include "foundation/workstation.h"

#include <QPointer>
#include <QWidget>

namespace vandrel {

class WorkForm : public QWidget {
    Q_OBJECT

  public:
    // opener may be null (tests); it is not the Qt parent: the form is a window of its own.
    WorkForm(Workstation& station, QWidget* opener);

    // Disables the opener, shows the form in the middle of the screen, see-through when the program is set
    // so.
    void open();

    bool isRunning() const { return m_running; }
    // True once after each wish to close the form that came during a run.
    bool takeStopWish();
    // The main window was closed over the form, which ends the program.
    bool programEnds() const;

  Q_SIGNALS:
    void closed();

  protected:
    // One run of the form's work. A second one does not start while the first lives (it is false), and the
    // form does not close: a wish to close is kept for takeStopWish().
    class Run {
      public:
        explicit Run(WorkForm& form);
        ~Run();
        Run(const Run&) = delete;
        Run& operator=(const Run&) = delete;
        explicit operator bool() const { return m_own; }

      private:
        WorkForm& m_form;
        const bool m_own;
    };

    Workstation& station() const { return m_station; }
    QWidget* opener() const { return m_opener; }

    // A wish to close came during a run.
    virtual void closeWished() {}
    // False for a form whose content must not be lost by one key.
    virtual bool escapeCloses() const { return true; }

    // Enables the opener again and gives it the focus. Not during a run, and not while another window is in
    // front of the form and has disabled it.
    void closeEvent(QCloseEvent* event) override;
    // Esc closes, Enter presses the button that has the focus.
    void keyPressEvent(QKeyEvent* event) override;

  private:
    Workstation& m_station;
    QPointer<QWidget> m_opener;
    bool m_running = false;
    bool m_stopWished = false;
};

} // namespace vandrel
