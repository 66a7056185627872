// Whether this is the only running instance on the machine, whoever started the other one.
#pragma once

#include <QByteArray>

namespace vandrel {

class SingleInstance {
  public:
    // Claims the name for this process until the object goes; the kernel frees it also after a crash.
    explicit SingleInstance(const QByteArray& name = "vandrel-jarobeteg");
    ~SingleInstance();
    SingleInstance(const SingleInstance&) = delete;
    SingleInstance& operator=(const SingleInstance&) = delete;

    bool otherRuns() const { return m_otherRuns; }

  private:
    int m_socket = -1;
    bool m_otherRuns = false;
};

} // namespace vandrel
