#include "foundation/forms/progress_line.h"

#include "foundation/forms/form_parts.h"
#include "foundation/forms/work_form.h"
#include "platform/format.h"

#include <QGridLayout>
#include <QProgressBar>

using namespace Qt::StringLiterals;

namespace vandrel {

namespace {
constexpr int barSteps = 10'000; // a hundredth of a percent each
}

ProgressLine::ProgressLine(WorkForm& form, Figure figure, const QString& figureName,
                           const QString& figureCaption)
    : m_form(form), m_figureKind(figure), m_stage(new ValueLabel(u"Allapot"_s, u"Állapot"_s)),
      m_figure(new ValueLabel(figureName, figureCaption)),
      m_bar(named(new QProgressBar, u"Folyamat"_s, u"A feldolgozás állása"_s)) {
    m_stage->setMargin(2); // the marks of a capital are above the font's own height
    m_figure->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    m_bar->setRange(0, barSteps);
    m_bar->setValue(0);
    m_bar->setTextVisible(false);
    auto* grid = new QGridLayout(this);
    grid->setContentsMargins(0, 0, 0, 0);
    grid->setHorizontalSpacing(10);
    grid->setVerticalSpacing(4);
    grid->addWidget(m_stage, 0, 0);
    grid->addWidget(m_figure, 0, 1);
    grid->addWidget(m_bar, 1, 0, 1, 2);
    grid->setColumnStretch(0, 1);
}

void ProgressLine::addBesideBar(QWidget* widget) {
    static_cast<QGridLayout*>(layout())->addWidget(widget, 1, 2);
}

void ProgressLine::clear() {
    stage({});
    m_figure->clear();
    m_bar->setValue(0);
}

void ProgressLine::stage(const QString& text) {
    m_stageText = text;
    m_stage->setText(text);
}

void ProgressLine::moved(qint64 position, qint64 total) {
    const double share = total > 0 ? static_cast<double>(position) / static_cast<double>(total) : 1.0;
    m_bar->setValue(static_cast<int>(share * barSteps));
    if (m_figureKind == Figure::count) {
        m_figure->setText(u"%1 / %2"_s.arg(position).arg(total));
        return;
    }
    m_stage->setText(m_stageText + QString::number(position));
    m_figure->setText(format::percent(share * 100.0));
}

bool ProgressLine::stopWished() {
    return m_form.takeStopWish();
}

bool ProgressLine::ending() {
    return m_form.programEnds();
}

} // namespace vandrel
