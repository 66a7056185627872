#include "print/pdf_file.h"

#include "platform/program_name.h"

#include <QPageLayout>

#include <cerrno>

using namespace Qt::StringLiterals;

namespace vandrel {

PdfJob::PdfJob(const QString& path, const PrintJobSetup& setup) : m_file(path), m_writer(&m_file) {
    m_writer.setResolution(1440); // one unit is one twip
    // The paper is given as it lies: what is wider than high needs no turning.
    m_writer.setPageLayout(QPageLayout(pageSize(setup.width, setup.height), QPageLayout::Portrait,
                                       QMarginsF(0, 0, 0, 0), QPageLayout::Point, QMarginsF(0, 0, 0, 0)));
    m_writer.setTitle(setup.title);
    m_writer.setCreator(programTitle);
    if (!begin(m_writer)) throw refused();
}

PdfJob::~PdfJob() {
    stop(); // the painter lets go of the writer, and the writer of the file; without keep() the file vanishes
}

void PdfJob::bringOut() {
    m_file.keep();
}

Fault PdfJob::refused() const {
    return fileFault(EIO, m_file.fileName());
}

} // namespace vandrel
