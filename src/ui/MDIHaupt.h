// The main window: the frame around all other windows, the menu, the program's start and its close.
#pragma once

#include <QMainWindow>

#include <functional>

class QAction;
class QLabel;
class QMdiArea;
class QMenu;

namespace quorvane {

class ChildWindow;
class frmColor;
class frmControl;
class frmDMX;
class frmElement;
class frmOptions;
class frmWand;

class MDIHaupt : public QMainWindow {
public:
    MDIHaupt();

    // The start of the program; false when it cannot run on this system. Afterwards the window is shown.
    bool MDIForm_Load();

    // Closes the window for someone who cannot see what is open on it: dialogs are left by their escape
    // first.
    void CloseFromOutside();

    QLabel* lblStatus; // repeats the wall window's status line, which may be closed
    frmWand* Wand;
    frmColor* Color;
    frmControl* Control;
    frmElement* Element;
    frmDMX* Dmx;
    frmOptions* Options;

    // Asks about unsaved work at the end of the user's session, when there is still somebody to be asked.
    // False when the session is to go on.
    bool MayEndSession(bool mayAsk);

    // True once the user has asked for the program's end while a command was still waiting.
    bool ClosePending() const { return closePending; }

protected:
    void closeEvent(QCloseEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void BuildMenus();
    void BuildFileMenu();
    void BuildEditMenu();
    void BuildDmxMenu();
    void BuildWindowMenu();
    void BuildSelectionMenu(const char* name, const char* caption, int shift);
    void BuildHelpMenu();
    QMenu* Submenu(QMenu* parent, const char* name, const char* caption);
    QAction* Entry(QMenu* menu, const char* name, const char* caption, std::function<void()> chosen);
    template<class Window> Window* AddChild();
    void FillScreen();
    void OpenWindow(int number);
    void PlaceMain();

    void mnuNeueWand_Click();
    void mnuKillWand_Click();
    void mnuDMXInit_Click();
    void Wait(const std::function<void()>& command);
    void ShowMemoryCard(int command);
    void EnableForTransfer(bool runs);
    void EnableDmxEntries();
    void mnuHilfe_Click();
    bool MDIForm_QueryUnload();
    void MDIForm_Unload();

    QMdiArea* area;
    QMenu* mnuBearbeiten = nullptr;
    QAction* mnuDMXStart = nullptr;
    QAction* mnuDMXStop = nullptr;
    QWidget* memoryCard = nullptr; // its window, while it is open
    QList<ChildWindow*> children;
    bool dmxEntries = true; // DMX Start and DMX Stop, when no transfer runs
    bool waiting = false;   // a command that lets events run is under way
    bool closePending = false;
};

} // namespace quorvane
