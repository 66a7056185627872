#include "print/forms/frmPrint.h"

#include "foundation/forms/field_chain.h"
#include "print/preview_scaling.h"

#include <QCheckBox>
#include <QComboBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMouseEvent>
#include <QPainter>
#include <QPushButton>
#include <QRadioButton>
#include <QVBoxLayout>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace vandrel {

namespace {

constexpr int pixel(double twips) {
    return static_cast<int>(twips / preview::twipsPerPixel);
}

constexpr int frameGap = pixel(120);
const QSize sheet(pixel(300), pixel(420));
const QPoint sheetOffset(pixel(150), pixel(210));

QLineEdit* numberField(const char* name, const QString& label, int digits) {
    auto* field = new QLineEdit;
    field->setObjectName(QLatin1StringView(name));
    field->setAccessibleName(label);
    field->setMaxLength(digits);
    field->setAlignment(Qt::AlignRight);
    field->setFixedWidth(field->fontMetrics().horizontalAdvance(QString(digits, u'0')) + 24);
    return field;
}

template<class Control>
Control* named(Control* control, const char* name) {
    control->setObjectName(QLatin1StringView(name));
    control->setAccessibleName(control->text());
    return control;
}

} // namespace

frmPrint::frmPrint(const PrintEngine& engine, Dialogue& dialogue, QWidget* parent)
    : QDialog(parent), m_dialogue(dialogue), m_chain(new FieldChain(this)),
      m_printerInUse(engine.printer.number()) {
    setObjectName(u"frmPrint"_s);
    setWindowTitle(u"Nyomtató beállítás"_s);
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(14, 12, 14, 12);
    column->setSpacing(frameGap);
    column->setSizeConstraint(QLayout::SetFixedSize); // the window follows the frames that are shown
    column->addWidget(makePrinterFrame(engine));
    column->addWidget(makePagesFrame());
    column->addWidget(makeCopiesFrame());
    column->addWidget(makeButtons());
    chainFields();
    optionChosen();
    m_print->setFocus();
}

QWidget* frmPrint::makePrinterFrame(const PrintEngine& engine) {
    m_printerFrame = new QGroupBox(u"Nyomtató"_s);
    auto* row = new QHBoxLayout(m_printerFrame);
    m_printers = new QComboBox;
    m_printers->setObjectName(u"PrinterNumber"_s);
    m_printers->setAccessibleName(u"Név:"_s);
    m_printers->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    m_printers->setMinimumContentsLength(44); // a long name widens no window
    for (const PrinterEntry& printer : engine.service.printers()) {
        QString port = printer.port;
        if (port.endsWith(u':')) port.chop(1);
        m_printers->addItem(printer.deviceName + u" on "_s + port);
    }
    m_printers->addItem(u"PDF fájl"_s);
    m_printers->setCurrentIndex(std::min(m_printerInUse, m_printers->count() - 1));
    auto* label = new QLabel(u"Név:"_s);
    label->setBuddy(m_printers);
    row->addWidget(label);
    row->addWidget(m_printers, 1);
    return m_printerFrame;
}

QWidget* frmPrint::makePagesFrame() {
    auto* frame = new QGroupBox(u"Oldalak kiválasztása"_s);
    auto* grid = new QGridLayout(frame);
    grid->setHorizontalSpacing(8);
    m_all = named(new QRadioButton(u"Minden oldal"_s), "MindenOldal");
    m_thisPage = named(new QRadioButton(u"Aktuális oldal"_s), "AktualisOldal");
    m_rangeOption = named(new QRadioButton(u"Oldaltartomány"_s), "Oldaltartomany");
    m_all->setChecked(true);
    int line = 0;
    for (QRadioButton* option : {m_all, m_thisPage, m_rangeOption}) {
        grid->addWidget(option, line++, 0);
        connect(option, &QRadioButton::toggled, this, [this](bool on) {
            if (on) optionChosen();
        });
    }
    m_pages = new QLabel;
    m_pages->setObjectName(u"Oldal"_s);
    m_pages->setAccessibleName(u"Oldal:"_s);
    m_from = numberField("PageStart", u"Kezdő:"_s, 6);
    m_to = numberField("PageEnd", u"Vég:"_s, 6);
    grid->setColumnMinimumWidth(1, 24);
    grid->addWidget(new QLabel(u"Oldal:"_s), 1, 2);
    grid->addWidget(m_pages, 1, 3, 1, 3);
    int place = 2;
    for (QLineEdit* field : {m_from, m_to}) {
        auto* label = new QLabel(field->accessibleName());
        label->setBuddy(field);
        grid->addWidget(label, 2, place++);
        grid->addWidget(field, 2, place++);
        field->installEventFilter(this);
    }
    grid->setColumnStretch(6, 1);
    return frame;
}

QWidget* frmPrint::makeCopiesFrame() {
    m_copiesFrame = new QGroupBox(u"Másolatok"_s);
    auto* row = new QHBoxLayout(m_copiesFrame);
    row->setSpacing(8);
    m_copies = numberField("Copies", u"Példányszám:"_s, 3);
    m_copies->setText(u"1"_s);
    m_collate = named(new QCheckBox(u"Szétválogatás"_s), "Collate");
    m_collate->setChecked(true);
    m_picture = new CopiesPicture(*m_collate);
    auto* label = new QLabel(m_copies->accessibleName());
    label->setBuddy(m_copies);
    row->addWidget(label);
    row->addWidget(m_copies);
    row->addSpacing(14);
    row->addWidget(m_collate);
    row->addStretch();
    row->addWidget(m_picture);
    connect(m_copies, &QLineEdit::textChanged, m_picture, qOverload<>(&QWidget::update));
    connect(m_collate, &QCheckBox::toggled, m_picture, qOverload<>(&QWidget::update));
    return m_copiesFrame;
}

QWidget* frmPrint::makeButtons() {
    auto* strip = new QWidget;
    auto* row = new QHBoxLayout(strip);
    row->setContentsMargins(0, 4, 0, 0);
    m_print = named(new QPushButton(u"Nyomtatás"_s), "PrintDoc");
    m_cancel = named(new QPushButton(u"Mégse"_s), "Megse");
    row->addStretch();
    for (QPushButton* button : {m_print, m_cancel}) {
        button->setMinimumWidth(110);
        button->setAutoDefault(false);
        row->addWidget(button);
    }
    connect(m_print, &QPushButton::clicked, this, &frmPrint::pressed);
    connect(m_cancel, &QPushButton::clicked, this, &QDialog::reject);
    return strip;
}

void frmPrint::chainFields() {
    FieldBehaviour numeric;
    numeric.numeric = true;
    m_chain->add(m_from, numeric);
    m_chain->add(m_to, numeric);
    numeric.key = [this](int key) { // on to the tick, which is no field of the chain
        if (key != Qt::Key_Return && key != Qt::Key_Down) return false;
        m_collate->setFocus();
        return true;
    };
    m_chain->add(m_copies, numeric);
    m_chain->add(m_print, pressOnEnter(m_print));
    m_chain->add(m_cancel, pressOnEnter(m_cancel));
    QWidget* before = m_printers;
    for (QWidget* field : std::initializer_list<QWidget*>{m_all, m_thisPage, m_rangeOption, m_from, m_to,
                                                          m_copies, m_collate, m_print, m_cancel}) {
        setTabOrder(before, field);
        before = field;
    }
}

// The list, the options and the tick have arrows of their own, and Enter goes on.
void frmPrint::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter)
        focusNextChild();
    else
        QDialog::keyPressEvent(event);
}

void frmPrint::setPageCurrent(int page) {
    m_current = page;
    optionChosen();
}

void frmPrint::setPageMax(int total) {
    m_total = total;
    optionChosen();
}

void frmPrint::setPrintOptions(long bits) {
    m_printerFrame->setVisible((bits & 1) != 0);
    m_copiesFrame->setVisible((bits & 2) != 0);
}

PageChoice frmPrint::choice() const {
    if (m_rangeOption->isChecked()) return PageChoice::range;
    return m_thisPage->isChecked() ? PageChoice::current : PageChoice::all;
}

void frmPrint::optionChosen() {
    const PageRange offered = offeredRange(choice(), m_current, m_total);
    m_from->setText(QString::number(offered.start));
    m_to->setText(QString::number(offered.end));
    for (QLineEdit* field : {m_from, m_to})
        field->setEnabled(choice() == PageChoice::range);
    m_pages->setText(u"%1 / %2"_s.arg(m_current).arg(m_total));
}

// Going into a range field chooses the range, also by a click while the fields are still closed.
bool frmPrint::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::FocusIn) m_rangeOption->setChecked(true);
    if (event->type() == QEvent::MouseButtonPress && !m_rangeOption->isChecked()) {
        m_rangeOption->setChecked(true);
        SelectAll(static_cast<QWidget*>(watched));
    }
    return QDialog::eventFilter(watched, event);
}

int frmPrint::Copies() const {
    return typedCopies(m_copies->text());
}

bool frmPrint::Collate() const {
    return m_collate->isChecked();
}

int frmPrint::PrinterNumber() const {
    return ToPdf() ? m_printerInUse : m_printers->currentIndex();
}

bool frmPrint::ToPdf() const {
    return m_printers->currentIndex() == m_printers->count() - 1;
}

void frmPrint::pressed() {
    const auto range = chosenRange(choice(), m_current, m_total, m_from->text(), m_to->text());
    if (!range) {
        m_dialogue.tell(u"Please enter a valid page range."_s, u"Range Error"_s, Icon::warning);
        SelectAll(m_from);
        return;
    }
    m_range = *range;
    m_printDoc = true;
    accept();
}

CopiesPicture::CopiesPicture(const QCheckBox& collate, QWidget* parent)
    : QWidget(parent), m_collate(collate) {
    setObjectName(u"MasolatokKepe"_s);
    setAccessibleName(u"A másolatok sorrendje"_s);
    const int stackWidth = sheet.width() + 2 * sheetOffset.x();
    setFixedSize(3 * stackWidth + 2 * frameGap + 1, sheet.height() + 2 * sheetOffset.y() + 1);
}

void CopiesPicture::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    QFont small = font();
    small.setPointSize(8);
    painter.setFont(small);
    painter.setPen(Qt::black);
    const bool collate = m_collate.isChecked();
    const int stacks = collate ? 2 : 3;
    const int pages = collate ? 3 : 2;
    const int step = sheet.width() + (pages - 1) * sheetOffset.x() + 2 * frameGap;
    for (int stack = 0; stack < stacks; ++stack) {
        // The first page lies on top, so it is drawn last.
        for (int page = pages - 1; page >= 0; --page) {
            const QRect place(QPoint(stack * step, 0) + page * sheetOffset, sheet);
            painter.fillRect(place, Qt::white);
            painter.drawRect(place);
            const int number = collate ? page + 1 : stack + 1;
            painter.drawText(place.adjusted(0, 0, -2, 0), Qt::AlignRight | Qt::AlignBottom,
                             QString::number(number));
        }
    }
}

} // namespace vandrel
