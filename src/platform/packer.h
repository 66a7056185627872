// The archiver: packs one file into an ARJ archive with the `arj` program, started and not waited for.
#pragma once

#include <QString>

#include <memory>

class QProcess;

namespace vandrel {

class Packer {
  public:
    virtual ~Packer() = default;
    // Starts packing fileName (a bare name in folder) into archivePath and returns at once. Whether it worked
    // is not looked at: a missing archiver is no fault.
    virtual void start(const QString& folder, const QString& archivePath, const QString& fileName) = 0;
    // Waits at most so long; true when nothing is running (any longer).
    virtual bool endsWithin(int milliseconds) = 0;
    // Waits until what was started has ended; true when the last archive was made.
    virtual bool waitForFinished() = 0;
};

class ArjPacker : public Packer {
  public:
    ArjPacker(); // the archiver found in the program's path
    explicit ArjPacker(const QString& program);
    ~ArjPacker() override; // lets a running archiver end: a half archive must not stay on the target

    void start(const QString& folder, const QString& archivePath, const QString& fileName) override;
    bool endsWithin(int milliseconds) override;
    bool waitForFinished() override;

  private:
    QString m_program;
    std::unique_ptr<QProcess> m_process;
};

} // namespace vandrel
