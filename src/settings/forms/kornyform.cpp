#include "settings/forms/kornyform.h"

#include "platform/format.h"

#include <QFormLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace vandrel {

namespace {

QLabel* valueLabel(const QString& name, const QString& label, const QString& value) {
    auto* result = new QLabel(value);
    result->setObjectName(name);
    result->setAccessibleName(label + ' '_L1 + value);
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
    form->addRow(dateLabel, valueLabel(u"datum"_s, dateLabel, format::shortDate(now.date())));
    const QString timeLabel = u"Idő:"_s;
    form->addRow(timeLabel, valueLabel(u"ido"_s, timeLabel, format::longTime(now.time())));

    auto* good = new QPushButton(u"Rendben"_s);
    good->setObjectName(u"OK"_s);
    good->setAccessibleName(good->text());
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

void kornyform::keyPressEvent(QKeyEvent* event) {
    const int key = event->key();
    if (key == Qt::Key_Escape || key == Qt::Key_Return || key == Qt::Key_Enter)
        close();
    else
        WorkForm::keyPressEvent(event);
}

} // namespace vandrel
