// Where the demonstration plays: its log, its pictures, and the message boxes it expects. A box that was not
// expected, a missing one or a failed check makes the whole demonstration fail.
#pragma once

#include <QDir>
#include <QObject>
#include <QPointer>
#include <QString>
#include <QTimer>

#include <deque>
#include <functional>
#include <stdexcept>

class QMessageBox;
class QWidget;

namespace vandrel::demo {

// The play cannot go on: what was on the screen is not what the clerk would need for the next key.
class Stopped : public std::runtime_error {
  public:
    explicit Stopped(const QString& why) : std::runtime_error(why.toStdString()) {}
};

class Stage : public QObject {
    Q_OBJECT

  public:
    explicit Stage(const QDir& pictures);

    void say(const QString& text);
    void fail(const QString& text);
    // True when it holds; else the fault is counted and told.
    bool check(bool holds, const QString& otherwise);
    void require(bool holds, const QString& otherwise); // Stopped when it does not
    int faults() const { return m_faults; }

    void picture(const QString& name, QWidget* window);
    // The next box begins with the text and is answered by the key: Return is yes or ok, N is no.
    void expectBox(const QString& begin, Qt::Key answer = Qt::Key_Return, const QString& pictureName = {});
    // Every expected box has been there.
    void boxesDone();
    // Serves events until it holds; Stopped when it does not within ten seconds.
    void waitFor(const QString& what, const std::function<bool()>& holds);

  private:
    struct Box {
        QString begin;
        Qt::Key answer;
        QString picture;
    };

    void look();

    QDir m_pictures;
    int m_pictureCount = 0;
    int m_faults = 0;
    std::deque<Box> m_expected;
    QTimer m_look;
    QPointer<QMessageBox> m_seen;
    bool m_answered = false;
};

} // namespace vandrel::demo
