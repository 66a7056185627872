// The main window: title, menu, toolbar, links, warnings. It decides what may be opened and asks the openers
// that app/ has given it to do so; it knows no other form.
#pragma once

#include "foundation/menu_map.h"
#include "foundation/workstation.h"

#include <QMainWindow>

#include <functional>
#include <map>

class QAction;
class QLabel;
class QLineEdit;
class QListWidget;
class QMenu;
class QPushButton;
class QToolBar;
class QToolButton;

namespace vandrel {

class MainPicture;
class TextLink;

class tetindul : public QMainWindow {
    Q_OBJECT

  public:
    // What the window asks of the process it runs in; the tests give answers of their own.
    struct Environment {
        std::function<bool()> otherInstanceRuns;
        std::function<void()> endProgram; // ends the program at once
        // False when the window cannot be made see-through or solid.
        std::function<bool(QWidget&, bool)> seeThrough;
    };

    tetindul(Workstation& station, Environment environment);

    // Tells what a menu entry opens. An entry without an opener is there, but disabled, and with it the
    // toolbar buttons and links that act as it. kil needs none.
    void setOpener(const QString& menuName, std::function<void()> opener);
    // What Enter or a double click in the date and time boxes opens.
    void setClockOpener(std::function<void()> opener) { m_clockOpener = std::move(opener); }

    // Size, place, caption and the database-format check; once, before the window is shown.
    void load();

  protected:
    bool event(QEvent* event) override;
    void closeEvent(QCloseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override; // Enter presses a toolbar button or link
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    void buildMenus();
    void buildToolbar();
    void buildBody();
    void activateLater();
    void activated();
    void showClock();
    void checkData();
    void trigger(std::string_view entry);
    void leave();
    bool reachable(std::string_view entry) const;
    void refreshStates();

    Workstation& m_station;
    Environment m_environment;
    std::map<std::string_view, QAction*> m_actions; // titles too: their menu's action
    std::map<std::string_view, std::function<void()>> m_openers;
    std::function<void()> m_clockOpener;
    QToolBar* m_toolbar = nullptr;
    std::map<QToolButton*, std::string_view> m_toolButtons;
    std::map<TextLink*, std::string_view> m_links;
    MainPicture* m_picture = nullptr;
    QLineEdit* m_date = nullptr;
    QLineEdit* m_time = nullptr;
    QLabel* m_warningsHead = nullptr;
    QListWidget* m_warnings = nullptr;

    bool m_oldFormat = false;     // the database must be converted first
    bool m_noInstitution = false; // the clerk does not want to fill the institution's data now
    bool m_activationDue = false;
    bool m_activating = false;
    bool m_boxHandsBack = false; // the next activation comes from a closing box and is none
    bool m_ended = false;
};

} // namespace vandrel
