#include "print/form_print.h"

#include "platform/fault.h"
#include "print/qc_printer.h"

using namespace Qt::StringLiterals;

namespace vandrel {

namespace {

QString keyOf(const PrintableControl& control) {
    return control.kind == ControlKind::optionButton ? u"Opt:"_s + control.name : control.name;
}

QString textOf(const PrintableControl& control) {
    if (control.kind != ControlKind::checkBox) return control.text;
    const QString mark = control.checked ? u"\u2713"_s : u"  "_s;
    return u"<FONT=wingdings>"_s + mark + u"</FONT> "_s + control.text;
}

} // namespace

void qcPrinter::FormPrint(const PrintableForm& form, long alignment) {
    shareGeometry();
    const double scale = form.scaleWidth > 0 ? m_engine.paper.width / form.scaleWidth : 1;
    for (const PrintableControl& control : form.controls) {
        qcTextItem& item = m_items.Add(qcTextItem(m_engine), keyOf(control));
        item.setText(textOf(control));
        TextStyle& style = item.change(true);
        style.fontName = control.fontName;
        style.fontSize = control.fontSize;
        style.fontBold = control.bold;
        style.fontItalic = control.italic;
        style.alignment = alignment;
        style.scaleMode = m_scaleMode;
        style.absolute = true;
        style.absPage = 1;
        // Indents count from the margins, the form's places from the paper's edge.
        const double left = control.left * scale;
        style.left = static_cast<float>(left);
        style.indentLeft = static_cast<float>(left - m_engine.marginLeft);
        style.indentRight =
            static_cast<float>(m_engine.paper.width - m_engine.marginRight - left - control.width * scale);
        style.top = static_cast<float>(control.top * scale);
        style.formOffset = static_cast<float>(-m_engine.marginTop);
        style.formHeight = static_cast<float>(control.height * scale);
        style.maxHeight = style.formHeight;
        item.GetSize();
    }
    m_form = form.name;
    m_engine.raisePaging();
}

void qcPrinter::FormPrint_Update(const PrintableForm& form) {
    const QString source = u"qPrinter"_s;
    if (!m_form)
        throw Fault(fault::formNotPrinted,
                    u"FormPrint_Update cannot be called.  The document has not be initialised with "
                    "FormPrint."_s,
                    source);
    if (*m_form != form.name)
        throw Fault(fault::otherForm,
                    u"FormPrint_Update cannot be called.  The form is different to the document form."_s,
                    source);
    for (const PrintableControl& control : form.controls)
        m_items.Item(keyOf(control)).setText(textOf(control));
}

} // namespace vandrel
