// What the lists must count, worked out from what was typed and from the sample's points and multipliers: the
// program's own selections, sums and formats are not used here.
#pragma once

#include <QHash>
#include <QString>
#include <QStringList>

namespace vandrel::demo {

// Points of the procedures and multipliers of the units, by their codes.
struct Tariff {
    QHash<QString, double> points;
    QHash<QString, double> multipliers;
};

// Sheets of the eleven categories that the first panel knows.
int sheetsOfTheBoxes();

// Rows of saved tables, cut to the columns that follow from the typing; sorted, cells parted by ";".
QStringList referrerRows(const Tariff& tariff);                    // of the fee category 01
QStringList procedureRows(const Tariff& tariff);                   // of the fee category 01
QStringList patientRows(const QString& taj, const Tariff& tariff); // each line of the patient's visits
QStringList unitRows(const QString& unit);                         // quantities of each procedure
QStringList visitFeeRows(const QString& unit);

} // namespace vandrel::demo
