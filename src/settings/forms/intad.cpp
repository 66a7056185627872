#include "settings/forms/intad.h"

#include "foundation/forms/field_chain.h"
#include "foundation/forms/form_parts.h"
#include "foundation/forms/masked_field.h"
#include "foundation/look_ups.h"

#include <QFormLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace vandrel {

namespace {

constexpr int nameWidth = 60; // characters

QString plainText(const QLineEdit* edit) {
    const auto* masked = qobject_cast<const MaskedField*>(edit);
    return masked != nullptr ? masked->value() : edit->text();
}

} // namespace

intad::intad(Workstation& station, QWidget* opener)
    : WorkForm(station, opener), m_chain(new FieldChain(this)) {
    setObjectName(u"intad"_s);
    setWindowTitle(u"Az intézmény adatainak megadása"_s);

    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(16, 14, 16, 10);
    column->setSpacing(12);
    column->addWidget(buildIdentity());
    column->addWidget(buildLogin());

    auto* keep = makeButton(u"Tarol"_s, u"&Tárol"_s);
    connect(keep, &QPushButton::clicked, this, &intad::store);
    auto* leave = makeButton(u"Kilepes"_s, u"&Kilépés"_s);
    connect(leave, &QPushButton::clicked, this, &intad::close);
    auto* buttons = new QHBoxLayout;
    buttons->addStretch();
    buttons->addWidget(keep);
    buttons->addWidget(leave);
    column->addLayout(buttons);

    m_status = new ValueLabel(u"statusz"_s, u"Állapot"_s);
    m_status->setFrameStyle(QFrame::Panel | QFrame::Sunken);
    m_status->setMinimumHeight(m_status->fontMetrics().height() + 8);
    column->addWidget(m_status);

    // Only fields that stand in the window take a place in its order.
    for (const Field& field : m_fields)
        m_chain->add(field.edit);
    m_chain->add(keep, pressOnEnter(keep));
    m_chain->adopt(leave, pressOnEnter(leave));
    setTabOrder(keep, leave);

    fill(loadInstitution(station));
    SelectAll(m_fields.front().edit);
}

QLineEdit* intad::addField(QLineEdit* edit, QString InstitutionFields::*member, const QString& name,
                           const QString& label, int characters) {
    named(edit, name, label);
    edit->setMinimumWidth(edit->fontMetrics().averageCharWidth() * (characters + 4));
    if (characters < nameWidth)
        edit->setMaximumWidth(edit->fontMetrics().averageCharWidth() * (characters + 8));
    m_fields.push_back({member, edit});
    return edit;
}

QWidget* intad::buildIdentity() {
    auto* box = new QGroupBox(u"Intézmény"_s);
    auto* form = new QFormLayout(box);
    form->setLabelAlignment(Qt::AlignRight | Qt::AlignVCenter);
    form->setHorizontalSpacing(12);
    const auto row = [&](const QString& label, QLineEdit* edit) { form->addRow(label, edit); };
    const auto plain = [&](QString InstitutionFields::*member, const QString& name, const QString& label,
                           int characters) {
        return addField(new QLineEdit, member, name, label, characters);
    };
    const QString nameLabel = u"Az intézet neve"_s;
    row(nameLabel, plain(&InstitutionFields::Int_nev, u"Int_nev"_s, nameLabel, nameWidth));
    const QString codeLabel = u"Az intézet gyógyinfok kódja"_s;
    row(codeLabel, plain(&InstitutionFields::Gyogyi_kod, u"Gyogyi_kod"_s, codeLabel, 9));
    const QString doctorLabel = u"Az ellátó orvos kódja"_s;
    row(doctorLabel, plain(&InstitutionFields::Orv_kod, u"Orv_kod"_s, doctorLabel, 9));
    const QString unitLabel = u"A szakrendelő kódja"_s;
    row(unitLabel, plain(&InstitutionFields::Szakrend_kod, u"Szakrend_kod"_s, unitLabel, 9));

    // Code, town and street stand beside one label, as an address is read.
    const QString addressLabel = u"Az intézet címe"_s;
    auto* address = new QHBoxLayout;
    address->setSpacing(6);
    QLineEdit* code = plain(&InstitutionFields::irsz, u"irsz"_s, addressLabel + u" - irányítószám"_s, 6);
    QLineEdit* town = plain(&InstitutionFields::City, u"City"_s, addressLabel + u" - város"_s, 22);
    QLineEdit* street =
        plain(&InstitutionFields::cim, u"cim"_s, addressLabel + u" - utca, házszám"_s, nameWidth);
    street->setMinimumWidth(street->fontMetrics().averageCharWidth() * 26);
    code->setPlaceholderText(u"irsz."_s);
    town->setPlaceholderText(u"város"_s);
    street->setPlaceholderText(u"utca, házszám"_s);
    address->addWidget(code);
    address->addWidget(town);
    address->addWidget(street, 1);
    form->addRow(addressLabel, address);
    connect(code, &QLineEdit::textEdited, this,
            [this, town](const QString& typed) { town->setText(townByPrefix(station(), typed)); });

    const QString accountLabel = u"Bankszámlaszám"_s;
    row(accountLabel, addField(new MaskedField(MaskedField::Mask::account), &InstitutionFields::Bankszamla,
                               u"Bankszamla"_s, accountLabel, 30));
    const QString taxLabel = u"Adóigazgatási azon. szám"_s;
    row(taxLabel, addField(new MaskedField(MaskedField::Mask::taxNumber), &InstitutionFields::Adoig_szam,
                           u"Adoig_szam"_s, taxLabel, 16));
    const QString nbkLabel = u"Az intézet NBK kódja"_s;
    row(nbkLabel, plain(&InstitutionFields::NBK_KOD, u"NBK_KOD"_s, nbkLabel, 9));
    return box;
}

QWidget* intad::buildLogin() {
    auto* box = new QGroupBox(u"On-line jogviszony ellenőrzéshez szükséges bejelentkező adatok:"_s);
    auto* form = new QFormLayout(box);
    form->setLabelAlignment(Qt::AlignRight | Qt::AlignVCenter);
    form->setHorizontalSpacing(12);
    const QString loginLabel = u"Bejelentkező név"_s;
    QLineEdit* login = addField(new QLineEdit, &InstitutionFields::Login, u"Login"_s, loginLabel, 39);
    login->setMaxLength(loginLength);
    form->addRow(loginLabel, login);
    const QString passwordLabel = u"Jelszó"_s;
    QLineEdit* password =
        addField(new QLineEdit, &InstitutionFields::Password, u"Password"_s, passwordLabel, 39);
    password->setMaxLength(loginLength);
    password->setEchoMode(QLineEdit::Password); // in clear text in the file only
    form->addRow(passwordLabel, password);
    return box;
}

void intad::fill(const InstitutionFields& institution) {
    for (const Field& field : m_fields) {
        const QString& value = institution.*field.member;
        if (auto* masked = qobject_cast<MaskedField*>(field.edit))
            masked->setValue(value);
        else
            field.edit->setText(value);
    }
}

InstitutionFields intad::fields() const {
    InstitutionFields result;
    for (const Field& field : m_fields)
        result.*field.member = plainText(field.edit);
    return result;
}

void intad::store() {
    m_status->clear();
    const InstitutionFields typed = fields();
    if (const auto failure = checkInstitutionFields(typed)) {
        if (failure->title.isEmpty())
            m_status->setText(failure->message);
        else
            tell(station().dialogue, *failure);
        SelectAll(findChild<QLineEdit*>(failure->field));
        return;
    }
    storeInstitution(station(), typed);
    m_status->setText(u" Adatok tárolása megtörtént!"_s);
    try {
        storeLogin(station(), typed);
    } catch (const Fault& fault) {
        m_status->setText(u" Hiba: Az on-line bejelentkező adatok tárolása nem sikerült!"_s);
        station().dialogue.tell(fault.text(), u"Hiba"_s);
    }
}

} // namespace vandrel
