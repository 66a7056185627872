// Says when the first window is up: painted, and the event loop free again. Then the process ends at once.
#pragma once

#include <QCoreApplication>
#include <QEvent>
#include <QWidget>

#include <unistd.h>

namespace vandrel::bench {

class FirstPaint : public QObject {
  public:
    FirstPaint() { QCoreApplication::instance()->installEventFilter(this); }

    bool eventFilter(QObject* watched, QEvent* event) override {
        auto* widget = qobject_cast<QWidget*>(watched);
        if (event->type() == QEvent::Paint && widget != nullptr && widget->isWindow() && !m_seen) {
            m_seen = true;
            const QByteArray name = widget->metaObject()->className();
            QMetaObject::invokeMethod(
                this,
                [name] {
                    const ssize_t written =
                        write(STDOUT_FILENO, name.constData(), static_cast<std::size_t>(name.size()));
                    _exit(written == name.size() ? 0 : 1);
                },
                Qt::QueuedConnection);
        }
        return false;
    }

  private:
    bool m_seen = false;
};

} // namespace vandrel::bench
