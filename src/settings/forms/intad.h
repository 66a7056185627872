// "Az intézmény adatainak megadása": the institution and its login, typed and stored.
#pragma once

#include "foundation/forms/work_form.h"
#include "settings/institution.h"

class QLineEdit;

namespace vandrel {

class FieldChain;
class MaskedField;
class ValueLabel;

class intad : public WorkForm {
    Q_OBJECT

  public:
    // Faults of the data file pass through.
    intad(Workstation& station, QWidget* opener);

  private:
    struct Field {
        QString InstitutionFields::*member;
        QLineEdit* edit;
    };

    QWidget* buildIdentity();
    QWidget* buildLogin();
    QLineEdit* addField(QLineEdit* edit, QString InstitutionFields::*member, const QString& name,
                        const QString& label, int characters);
    void fill(const InstitutionFields& institution);
    InstitutionFields fields() const;
    void store();

    FieldChain* m_chain;
    std::vector<Field> m_fields; // in the order of the screen
    ValueLabel* m_status = nullptr;
};

} // namespace vandrel
