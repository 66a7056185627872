// Whether this is the only running instance on the machine and on its data folder, whoever started the other
// one and wherever.
#pragma once

#include <QByteArray>
#include <QString>

namespace vandrel {

class SingleInstance {
  public:
    static constexpr const char* programName = "vandrel-jarobeteg";
    static constexpr const char* lockFileName = "vandrel.lock";

    // Claims the name on this machine and, unless it is empty, the folder for every machine that shares it,
    // until the object goes; the kernel frees both also after a crash. A folder where no file can be made or
    // locked is not claimed and counts as free.
    explicit SingleInstance(const QByteArray& name = programName, const QString& dataFolder = {});
    ~SingleInstance();
    SingleInstance(const SingleInstance&) = delete;
    SingleInstance& operator=(const SingleInstance&) = delete;

    bool otherRuns() const { return m_otherRuns; }

  private:
    void claimFolder(const QString& folder);

    int m_socket = -1;
    int m_lockFile = -1;
    bool m_otherRuns = false;
};

} // namespace vandrel
