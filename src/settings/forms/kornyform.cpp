#include "settings/forms/kornyform.h"

#include "foundation/forms/form_parts.h"
#include "platform/format.h"

#include <QFormLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QPushButton>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace vandrel {

namespace {

ValueLabel* shown(const QString& name, const QString& caption, const QString& value) {
    auto* result = new ValueLabel(name, caption);
    result->setText(value);
    QFont bold = result->font();
    bold.setBold(true);
    result->setFont(bold);
    return result;
}

} // namespace

kornyform::kornyform(Workstation& station, QWidget* opener) : WorkForm(station, opener) {
    setObjectName(u"kornyform"_s);
    setWindowTitle(u"Környezet"_s);
    const QDateTime now = station.clock.now();

    auto* box = new QGroupBox(u"Egyéb információk"_s);
    auto* form = new QFormLayout(box);
    form->setHorizontalSpacing(16);
    const QString dateLabel = u"Dátum:"_s;
    form->addRow(dateLabel, shown(u"datum"_s, dateLabel, format::shortDate(now.date())));
    const QString timeLabel = u"Idő:"_s;
    form->addRow(timeLabel, shown(u"ido"_s, timeLabel, format::longTime(now.time())));

    auto* good = makeButton(u"OK"_s, u"Rendben"_s);
    connect(good, &QPushButton::clicked, this, &kornyform::close);
    auto* buttons = new QHBoxLayout;
    buttons->addStretch();
    buttons->addWidget(good);
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(18, 16, 18, 12);
    column->setSpacing(14);
    column->addWidget(box);
    column->addLayout(buttons);
    setMinimumWidth(300);
    good->setFocus();
}

} // namespace vandrel
