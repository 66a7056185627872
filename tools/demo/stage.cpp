#include "demo/stage.h"

#include "demo/keyboard.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QMessageBox>

#include <cstdio>

using namespace Qt::StringLiterals;

namespace vandrel::demo {

namespace {
constexpr int patience = 10'000; // milliseconds
}

Stage::Stage(const QDir& pictures) : m_pictures(pictures) {
    // Boxes run an event loop of their own inside the key that brought them up: a timer is what still runs.
    connect(&m_look, &QTimer::timeout, this, &Stage::look);
    m_look.start(2);
}

void Stage::say(const QString& text) {
    std::printf("%s\n", text.toUtf8().constData());
    std::fflush(stdout);
}

void Stage::fail(const QString& text) {
    ++m_faults;
    say(u"HIBA: "_s + text);
}

bool Stage::check(bool holds, const QString& otherwise) {
    if (!holds) fail(otherwise);
    return holds;
}

void Stage::require(bool holds, const QString& otherwise) {
    if (!holds) throw Stopped(otherwise);
}

void Stage::picture(const QString& name, QWidget* window) {
    require(window != nullptr && window->isVisible(), u"nincs ilyen ablak: "_s + name);
    const QString file = m_pictures.filePath(u"%1-%2.png"_s.arg(++m_pictureCount, 2, 10, '0'_L1).arg(name));
    check(window->grab().save(file), u"a kép nem menthető: "_s + file);
}

void Stage::expectBox(const QString& begin, Qt::Key answer, const QString& pictureName) {
    m_expected.push_back({begin, answer, pictureName});
}

void Stage::boxesDone() {
    settle();
    for (const Box& box : m_expected)
        fail(u"nem jelent meg az üzenet: "_s + box.begin);
    m_expected.clear();
}

void Stage::look() {
    auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
    if (box == nullptr || !box->isVisible()) return;
    if (box != m_seen) { // answered at the second look, when it is laid out and has the focus
        m_seen = box;
        m_answered = false;
        return;
    }
    if (m_answered) return;
    m_answered = true;
    const QString text = box->text();
    if (m_expected.empty() || !text.startsWith(m_expected.front().begin)) {
        fail(u"váratlan üzenet: %1: %2"_s.arg(box->windowTitle(), text));
        picture(u"varatlan"_s, box);
        QApplication::setActiveWindow(box);
        press(Qt::Key_Escape);
        if (m_seen != nullptr && m_seen->isVisible()) m_seen->reject();
        return;
    }
    const Box expected = m_expected.front();
    m_expected.pop_front();
    if (!expected.picture.isEmpty()) picture(expected.picture, box);
    press(expected.answer);
}

void Stage::waitFor(const QString& what, const std::function<bool()>& holds) {
    QElapsedTimer waited;
    waited.start();
    while (!holds()) {
        if (waited.elapsed() > patience) throw Stopped(u"hiába vártunk erre: "_s + what);
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents | QEventLoop::AllEvents, 20);
        settle();
    }
}

} // namespace vandrel::demo
