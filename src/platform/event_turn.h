// Gives the event loop a turn from inside a long loop, by time and not by record: a turn on each of fifty
// thousand records costs seconds, one every 20 milliseconds nothing.
#pragma once

#include <chrono>
#include <functional>
#include <utility>

namespace vandrel {

class EventTurn {
  public:
    // serve runs the event loop once; an empty function is allowed (no window).
    explicit EventTurn(std::function<void()> serve,
                       std::chrono::milliseconds every = std::chrono::milliseconds(20))
        : m_serve(std::move(serve)), m_every(every), m_last(std::chrono::steady_clock::now()) {}

    // True when a turn is due; the caller then refreshes its display when that is due too, and calls serve().
    bool due() const { return std::chrono::steady_clock::now() - m_last >= m_every; }
    // True every tenth of a second. A display that is painted anew costs many times what a turn does, and
    // nobody reads figures faster.
    bool displayDue() {
        const auto now = std::chrono::steady_clock::now();
        if (now - m_displayed < displayEvery) return false;
        m_displayed = now;
        return true;
    }
    void serve() {
        if (m_serve) m_serve();
        m_last = std::chrono::steady_clock::now();
    }

  private:
    static constexpr std::chrono::milliseconds displayEvery{100};

    std::function<void()> m_serve;
    std::chrono::milliseconds m_every;
    std::chrono::steady_clock::time_point m_last;
    std::chrono::steady_clock::time_point m_displayed; // long ago: the first one is shown at once
};

} // namespace vandrel
