// The head's labels.
#include "sheet/forms/institution_head.h"

#include "sheet/forms/sheet_desk.h"

#include <QGridLayout>
#include <QLabel>

using namespace Qt::StringLiterals;

namespace vandrel {

namespace {

QLabel* strong(QLabel* label, double larger) {
    QFont font = label->font();
    font.setBold(true);
    font.setPointSizeF(font.pointSizeF() + larger);
    label->setFont(font);
    return label;
}

QLabel* exact(const QString& name, const QString& accessible) {
    auto* label = new QLabel;
    label->setObjectName(name);
    label->setAccessibleName(accessible);
    label->setTextFormat(Qt::PlainText);
    label->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    return label;
}

} // namespace

InstitutionHead::InstitutionHead(QWidget* parent)
    : QWidget(parent), m_name(strong(SheetDesk::makeDataLabel(u"Int_nev"_s), 3)),
      m_address(SheetDesk::makeDataLabel(u"Int_cim"_s)), m_today(exact(u"ma"_s, u"Mai dátum"_s)),
      m_key(strong(exact(u"Azonosito"_s, u"Azonosító:"_s), 3)),
      m_mode(strong(exact(u"modszoveg"_s, u"Mód"_s), 3)) {
    m_name->setAccessibleName(u"Az intézet neve"_s);
    m_address->setAccessibleName(u"Az intézet címe"_s);
    QPalette warning = m_mode->palette();
    warning.setColor(QPalette::WindowText, QColor(178, 34, 34));
    m_mode->setPalette(warning);
    auto* caption = new QLabel(u"Azonosító:"_s);
    auto* grid = new QGridLayout(this);
    grid->setContentsMargins(4, 0, 4, 0);
    grid->setHorizontalSpacing(10);
    grid->setVerticalSpacing(1);
    grid->addWidget(m_name, 0, 0);
    grid->addWidget(m_address, 1, 0);
    grid->addWidget(m_mode, 0, 1, 2, 1);
    grid->addWidget(caption, 0, 2, Qt::AlignRight);
    grid->addWidget(m_key, 0, 3);
    grid->addWidget(m_today, 1, 2, 1, 2);
    grid->setColumnStretch(0, 1);
    m_key->setTextInteractionFlags(Qt::TextSelectableByMouse);
}

void InstitutionHead::setInstitution(const QString& name, const QString& address) {
    m_name->setText(name);
    m_address->setText(address);
}

void InstitutionHead::setToday(const QString& today) {
    m_today->setText(today);
}

void InstitutionHead::setKey(const QString& key) {
    m_key->setText(key);
}

void InstitutionHead::setMode(const QString& mode) {
    m_mode->setText(mode);
}

QString InstitutionHead::key() const {
    return m_key->text();
}

} // namespace vandrel
