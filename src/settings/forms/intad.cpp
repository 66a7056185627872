#include "settings/forms/intad.h"

#include "foundation/forms/field_chain.h"
#include "foundation/forms/masked_field.h"
#include "foundation/look_ups.h"

#include <QFormLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

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
    setObjectName(QStringLiteral("intad"));
    setWindowTitle(QStringLiteral("Az intézmény adatainak megadása"));

    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(16, 14, 16, 10);
    column->setSpacing(12);
    column->addWidget(buildIdentity());
    column->addWidget(buildLogin());

    auto* keep = new QPushButton(QStringLiteral("&Tárol"));
    keep->setObjectName(QStringLiteral("Tarol"));
    keep->setAccessibleName(QStringLiteral("Tárol"));
    connect(keep, &QPushButton::clicked, this, &intad::store);
    auto* leave = new QPushButton(QStringLiteral("&Kilépés"));
    leave->setObjectName(QStringLiteral("Kilepes"));
    leave->setAccessibleName(QStringLiteral("Kilépés"));
    connect(leave, &QPushButton::clicked, this, &intad::close);
    auto* buttons = new QHBoxLayout;
    buttons->addStretch();
    buttons->addWidget(keep);
    buttons->addWidget(leave);
    column->addLayout(buttons);

    m_status = new QLabel;
    m_status->setObjectName(QStringLiteral("statusz"));
    m_status->setTextFormat(Qt::PlainText);
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
    edit->setObjectName(name);
    edit->setAccessibleName(label);
    edit->setMinimumWidth(edit->fontMetrics().averageCharWidth() * (characters + 4));
    if (characters < nameWidth)
        edit->setMaximumWidth(edit->fontMetrics().averageCharWidth() * (characters + 8));
    m_fields.push_back({member, edit});
    return edit;
}

QWidget* intad::buildIdentity() {
    auto* box = new QGroupBox(QStringLiteral("Intézmény"));
    auto* form = new QFormLayout(box);
    form->setLabelAlignment(Qt::AlignRight | Qt::AlignVCenter);
    form->setHorizontalSpacing(12);
    const auto row = [&](const QString& label, QLineEdit* edit) { form->addRow(label, edit); };
    const auto plain = [&](QString InstitutionFields::*member, const QString& name, const QString& label,
                           int characters) {
        return addField(new QLineEdit, member, name, label, characters);
    };
    const QString nameLabel = QStringLiteral("Az intézet neve");
    row(nameLabel, plain(&InstitutionFields::Int_nev, QStringLiteral("Int_nev"), nameLabel, nameWidth));
    const QString codeLabel = QStringLiteral("Az intézet gyógyinfok kódja");
    row(codeLabel, plain(&InstitutionFields::Gyogyi_kod, QStringLiteral("Gyogyi_kod"), codeLabel, 9));
    const QString doctorLabel = QStringLiteral("Az ellátó orvos kódja");
    row(doctorLabel, plain(&InstitutionFields::Orv_kod, QStringLiteral("Orv_kod"), doctorLabel, 9));
    const QString unitLabel = QStringLiteral("A szakrendelő kódja");
    row(unitLabel, plain(&InstitutionFields::Szakrend_kod, QStringLiteral("Szakrend_kod"), unitLabel, 9));

    // Code, town and street stand beside one label, as an address is read.
    const QString addressLabel = QStringLiteral("Az intézet címe");
    auto* address = new QHBoxLayout;
    address->setSpacing(6);
    QLineEdit* code = plain(&InstitutionFields::irsz, QStringLiteral("irsz"),
                            addressLabel + QStringLiteral(" - irányítószám"), 6);
    QLineEdit* town = plain(&InstitutionFields::City, QStringLiteral("City"),
                            addressLabel + QStringLiteral(" - város"), 22);
    QLineEdit* street = plain(&InstitutionFields::cim, QStringLiteral("cim"),
                              addressLabel + QStringLiteral(" - utca, házszám"), nameWidth);
    street->setMinimumWidth(street->fontMetrics().averageCharWidth() * 26);
    code->setPlaceholderText(QStringLiteral("irsz."));
    town->setPlaceholderText(QStringLiteral("város"));
    street->setPlaceholderText(QStringLiteral("utca, házszám"));
    address->addWidget(code);
    address->addWidget(town);
    address->addWidget(street, 1);
    form->addRow(addressLabel, address);
    connect(code, &QLineEdit::textEdited, this,
            [this, town](const QString& typed) { town->setText(townByPrefix(station(), typed)); });

    const QString accountLabel = QStringLiteral("Bankszámlaszám");
    row(accountLabel, addField(new MaskedField(MaskedField::Mask::account), &InstitutionFields::Bankszamla,
                               QStringLiteral("Bankszamla"), accountLabel, 30));
    const QString taxLabel = QStringLiteral("Adóigazgatási azon. szám");
    row(taxLabel, addField(new MaskedField(MaskedField::Mask::taxNumber), &InstitutionFields::Adoig_szam,
                           QStringLiteral("Adoig_szam"), taxLabel, 16));
    const QString nbkLabel = QStringLiteral("Az intézet NBK kódja");
    row(nbkLabel, plain(&InstitutionFields::NBK_KOD, QStringLiteral("NBK_KOD"), nbkLabel, 9));
    return box;
}

QWidget* intad::buildLogin() {
    auto* box =
        new QGroupBox(QStringLiteral("On-line jogviszony ellenőrzéshez szükséges bejelentkező adatok:"));
    auto* form = new QFormLayout(box);
    form->setLabelAlignment(Qt::AlignRight | Qt::AlignVCenter);
    form->setHorizontalSpacing(12);
    const QString loginLabel = QStringLiteral("Bejelentkező név");
    QLineEdit* login =
        addField(new QLineEdit, &InstitutionFields::Login, QStringLiteral("Login"), loginLabel, 39);
    login->setMaxLength(loginLength);
    form->addRow(loginLabel, login);
    const QString passwordLabel = QStringLiteral("Jelszó");
    QLineEdit* password =
        addField(new QLineEdit, &InstitutionFields::Password, QStringLiteral("Password"), passwordLabel, 39);
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
    const InstitutionFault fault = checkInstitutionFields(typed);
    if (!fault.field.isEmpty()) {
        m_status->setText(fault.status);
        if (!fault.box.isEmpty()) station().dialogue.tell(fault.box, QStringLiteral("Hiba"));
        SelectAll(findChild<QLineEdit*>(fault.field));
        return;
    }
    storeInstitution(station(), typed);
    m_status->setText(QStringLiteral(" Adatok tárolása megtörtént!"));
    storeLogin(station(), typed);
}

void intad::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Escape)
        close();
    else
        WorkForm::keyPressEvent(event);
}

} // namespace vandrel
