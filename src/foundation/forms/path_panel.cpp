#include "foundation/forms/path_panel.h"

#include "foundation/forms/form_parts.h"
#include "foundation/forms/openform.h"

#include <QGridLayout>
#include <QHBoxLayout>
#include <QPointer>
#include <QPushButton>

using namespace Qt::StringLiterals;

namespace vandrel {

PathPanel::PathPanel(Workstation& station, WorkForm& form, const Names& names)
    : m_station(station), m_form(form), m_fajta(names.fajta),
      m_button(makeButton(names.button, names.buttonText, 150)),
      m_path(new ValueLabel(names.display, names.displayCaption)),
      m_drive(new ValueLabel(u"Meghajto"_s, u"Meghajtó"_s)),
      m_total(new ValueLabel(u"TeljesLemez"_s, u"Teljes lemezterület"_s)),
      m_free(new ValueLabel(u"SzabadLemez"_s, u"Szabad lemezterület"_s)) {
    m_path->setFrameStyle(QFrame::Panel | QFrame::Sunken);
    m_path->setMargin(4);
    m_path->setTextInteractionFlags(Qt::TextSelectableByMouse);
    m_path->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred); // a long path widens no window
    auto* volume = new QHBoxLayout;
    volume->setSpacing(18);
    for (QLabel* label : {m_drive, m_total, m_free})
        volume->addWidget(label);
    volume->addStretch();
    auto* grid = new QGridLayout(this);
    grid->setHorizontalSpacing(10);
    grid->addWidget(m_path, 0, 0);
    grid->addWidget(m_button, 0, 1);
    grid->addLayout(volume, 1, 0, 1, 2);
    grid->setColumnStretch(0, 1);
    connect(m_button, &QPushButton::clicked, this, &PathPanel::choose);
}

QString PathPanel::path() const {
    return m_path->text();
}

void PathPanel::setPath(const QString& path) {
    m_path->setText(path);
}

void PathPanel::choose() {
    auto* picker =
        new openform(m_station, &m_form, m_fajta,
                     [panel = QPointer<PathPanel>(this)](const QString& path, const VolumeTexts& texts) {
                         if (panel != nullptr) panel->take(path, texts);
                     });
    connect(picker, &WorkForm::closed, picker, &QObject::deleteLater);
    picker->open();
}

void PathPanel::take(const QString& path, const VolumeTexts& texts) {
    setPath(openform::picksReportTarget(m_fajta) ? m_station.reportTarget : path);
    m_drive->setText(texts.drive);
    m_total->setText(texts.total);
    m_free->setText(texts.free);
    Q_EMIT chosen();
}

} // namespace vandrel
