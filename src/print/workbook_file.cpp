#include "print/workbook_file.h"

#include "platform/atomic_file.h"

#include <QTemporaryDir>

#include <algorithm>
#include <cerrno>
#include <cstdlib>

#include <xlsxwriter.h>

using namespace Qt::StringLiterals;

namespace vandrel {

namespace {

constexpr qsizetype longestCell = 32'767; // characters
constexpr double narrowest = 6, widest = 60;
constexpr double titleSize = 14; // points

// A character that XML 1.0 does not have would make a workbook that no program opens.
QString printable(QString text) {
    for (QChar& c : text)
        if (c < u' ' && c != u'\n' && c != u'\t' && c != u'\r') c = u' ';
    if (text.size() > longestCell) text = text.left(longestCell - 1) + u'…';
    return text;
}

class Workbook {
  public:
    Workbook(const DocumentTable& table, const QByteArray& path, const QByteArray& folder)
        : m_table(table), m_folder(folder) {
        lxw_workbook_options options{};
        options.constant_memory = LXW_TRUE; // rows go to the disk one by one
        options.tmpdir = m_folder.data();
        m_book = workbook_new_opt(path.constData(), &options);
        if (m_book == nullptr) throw fileFault(ENOMEM, QString::fromUtf8(path));
        m_bold = workbook_add_format(m_book);
        format_set_bold(m_bold);
        m_titleLook = workbook_add_format(m_book);
        format_set_bold(m_titleLook);
        format_set_font_size(m_titleLook, titleSize);
        m_text = workbook_add_format(m_book);
        format_set_num_format(m_text, "@");
    }
    ~Workbook() {
        if (m_book != nullptr) lxw_workbook_free(m_book);
    }
    Workbook(const Workbook&) = delete;
    Workbook& operator=(const Workbook&) = delete;

    void write() {
        beginSheet();
        m_table.eachRow([this](const DocumentTable::Row& row) {
            if (m_heads.isEmpty()) {
                for (const QByteArrayView head : row)
                    m_heads << QString::fromUtf8(head);
                writeHeads();
                return;
            }
            if (m_row == LXW_ROW_MAX) {
                beginSheet();
                writeHeads();
            }
            writeRow(row);
        });
    }
    void close(const QString& path) {
        const lxw_error error = workbook_close(std::exchange(m_book, nullptr));
        if (error != LXW_NO_ERROR) throw fileFault(errno != 0 ? errno : ENOSPC, path);
    }

  private:
    void beginSheet() {
        const QString name = ++m_sheets == 1 ? u"Lista"_s : u"Lista %1"_s.arg(m_sheets);
        m_sheet = workbook_add_worksheet(m_book, name.toUtf8().constData());
        m_row = 0;
        lxw_col_t column = 0;
        for (const qsizetype characters : m_table.widths()) {
            const double width = std::clamp(static_cast<double>(characters) + 2, narrowest, widest);
            worksheet_set_column(m_sheet, column, column, width, nullptr);
            ++column;
        }
        for (const auto& [text, look] :
             {std::pair{m_table.title(), m_titleLook}, std::pair{m_table.subtitle(), m_text}})
            if (!text.isEmpty()) writeText(m_row++, 0, text, look);
        if (m_row > 0) ++m_row; // a blank row
    }
    void writeHeads() {
        lxw_col_t column = 0;
        for (const QString& head : m_heads)
            writeText(m_row, column++, head, m_bold);
        worksheet_freeze_panes(m_sheet, ++m_row, 0);
    }
    void writeRow(const DocumentTable::Row& row) {
        lxw_col_t column = 0;
        for (const QByteArrayView cell : row) {
            const QString text = QString::fromUtf8(cell);
            bool isNumber = false;
            const double number = QString(text).replace(u',', u'.').toDouble(&isNumber);
            if (isNumber && m_table.isNumber(column))
                worksheet_write_number(m_sheet, m_row, column, number, nullptr);
            else if (!text.isEmpty())
                writeText(m_row, column, text, m_text);
            ++column;
        }
        ++m_row;
    }
    void writeText(lxw_row_t row, lxw_col_t column, const QString& text, lxw_format* look) {
        worksheet_write_string(m_sheet, row, column, printable(text).toUtf8().constData(), look);
    }

    const DocumentTable& m_table;
    QByteArray m_folder;
    lxw_workbook* m_book = nullptr;
    lxw_worksheet* m_sheet = nullptr;
    lxw_format *m_bold, *m_titleLook, *m_text;
    QStringList m_heads;
    lxw_row_t m_row = 0;
    int m_sheets = 0;
};

} // namespace

void saveWorkbook(const DocumentTable& table, const QString& path) {
    AtomicFile file(path); // first, so that a place that cannot be written is told at once
    errno = 0;
    const QTemporaryDir folder;
    if (!folder.isValid()) throw fileFault(errno != 0 ? errno : EACCES, folder.path());
    const QString made = folder.filePath(u"tabla.xlsx"_s);
    {
        Workbook book(table, QFile::encodeName(made), QFile::encodeName(folder.path()));
        book.write();
        errno = 0;
        book.close(made);
    }
    QFile bytes(made);
    if (!bytes.open(QIODevice::ReadOnly)) throw fileFault(EIO, made);
    constexpr qint64 piece = 1 << 20;
    while (!bytes.atEnd())
        file.write(bytes.read(piece));
    file.keep();
}

} // namespace vandrel
