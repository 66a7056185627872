// The line on a form that shows a run: what it does, how far it is, a bar. It answers the run's questions
// from the form: Esc and the close button are a wish to stop.
#pragma once

#include "foundation/progress.h"

#include <QWidget>

class QProgressBar;

namespace vandrel {

class ValueLabel;
class WorkForm;

class ProgressLine : public QWidget, public Progress {
    Q_OBJECT

  public:
    enum class Figure {
        percent, // "12,34 %", and the position goes after the stage's text
        count    // "12 / 34"
    };
    // figureName and figureCaption name the label of the figure; the stage is "Allapot", the bar "Folyamat".
    ProgressLine(WorkForm& form, Figure figure, const QString& figureName, const QString& figureCaption);

    // Right of the bar.
    void addBesideBar(QWidget* widget);
    // Before a run.
    void clear();

    void stage(const QString& text) override;
    void moved(qint64 position, qint64 total) override;
    bool stopWished() override;
    bool ending() override;

  private:
    WorkForm& m_form;
    const Figure m_figureKind;
    QString m_stageText;
    ValueLabel *m_stage, *m_figure;
    QProgressBar* m_bar;
};

} // namespace vandrel
