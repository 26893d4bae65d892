#include "ui/MDIHaupt.h"

#include "devices/interface.h"
#include "files/lifecycle.h"
#include "files/settingsfile.h"
#include "model/screen.h"
#include "model/show.h"
#include "model/wall.h"
#include "platform/host.h"
#include "platform/programfolder.h"
#include "ui/field.h"
#include "ui/frmColor.h"
#include "ui/frmControl.h"
#include "ui/frmDMX.h"
#include "ui/frmElement.h"
#include "ui/frmFiles.h"
#include "ui/frmIFS.h"
#include "ui/frmNeueWand.h"
#include "ui/frmOptions.h"
#include "ui/frmWand.h"
#include "ui/geometry.h"
#include "ui/shown.h"

#include <QApplication>
#include <QCloseEvent>
#include <QLabel>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QMenu>
#include <QMouseEvent>
#include <QScopeGuard>
#include <QScopedValueRollback>
#include <QScreen>
#include <QSessionManager>
#include <QTimer>
#include <QVBoxLayout>

namespace quorvane {

MDIHaupt::MDIHaupt() : lblStatus(new QLabel), area(new QMdiArea) {
    setObjectName("MDIHaupt");
    area->setBackground(palette().color(QPalette::Base));
    area->setHorizontalScrollBarPolicy(Qt::ScrollBarAsNeeded);
    area->setVerticalScrollBarPolicy(Qt::ScrollBarAsNeeded);
    lblStatus->setObjectName("lblStatus");
    lblStatus->setAccessibleName("Statuszeile");
    lblStatus->setTextFormat(Qt::PlainText);
    lblStatus->setMargin(4);
    lblStatus->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);

    auto* centre = new QWidget;
    auto* layout = new QVBoxLayout(centre);
    layout->setContentsMargins({});
    layout->setSpacing(0);
    layout->addWidget(area, 1);
    layout->addWidget(lblStatus);
    setCentralWidget(centre);

    Wand = AddChild<frmWand>();
    Color = AddChild<frmColor>();
    Control = AddChild<frmControl>();
    Element = AddChild<frmElement>();
    Dmx = AddChild<frmDMX>();
    Options = AddChild<frmOptions>();
    BuildMenus();
    area->viewport()->installEventFilter(this);
    connect(qGuiApp, &QGuiApplication::commitDataRequest, this, [this](QSessionManager& session) {
        if (!MayEndSession(session.allowsInteraction())) session.cancel();
    });
    FillScreen();
}

template<class Window> Window* MDIHaupt::AddChild() {
    auto* window = new Window;
    QMdiSubWindow* frame = area->addSubWindow(window);
    frame->setAttribute(Qt::WA_DeleteOnClose, false); // closing hides it: it comes back as it was
    frame->hide();
    window->hide();
    children.append(window);
    connect(area, &QMdiArea::subWindowActivated, window,
            [window](const QMdiSubWindow* active) { window->FrontChanged(active); });
    return window;
}

void MDIHaupt::FillScreen() {
    Screen.MainCaption = [this, shown = std::string()](std::string_view text) mutable {
        if (shown == text) return; // said again at every tick while an ISA card runs
        shown = text;
        setWindowTitle(ShownAsTitle(text));
    };
    Screen.WallStatus = [this](std::string_view text) {
        lblStatus->setText(Shown(text));
        Wand->lblStatus->setText(Shown(text));
    };
    Screen.RefreshMain = [this] { update(); };
    Screen.EnableDmxEntries = [this](bool on) {
        dmxEntries = on;
        EnableDmxEntries();
    };
    Screen.ShowDmxEntries = [this](bool shown) {
        mnuDMXStart->setVisible(shown);
        mnuDMXStop->setVisible(shown);
    };
    Screen.CheckDmxStop = [this](bool stopped) { mnuDMXStop->setChecked(stopped); };
    Screen.TransferRuns = [this](bool runs) { EnableForTransfer(runs); };
    Screen.PlaceMain = [this] { PlaceMain(); };
    Screen.OpenWindow = [this](int number) { OpenWindow(number); };
    Screen.OpenEditMenu = [this] { mnuBearbeiten->exec(Wand->Pressed); };
}

void MDIHaupt::OpenWindow(int number) {
    if (number == WallWindow) Wand->Open();
    if (number == ColourWindow) Color->Open();
    if (number == SequencerWindow) Control->Open();
    if (number == TestWindow) Dmx->Open();
    if (number == ElementWindow) Element->Open();
    if (number == OptionsWindow) Options->Open();
}

// Shown here, so that the windows inside find the area they are placed in.
void MDIHaupt::PlaceMain() {
    constexpr int minimised = 1;
    constexpr int maximised = 2;
    const QRect available = screen()->availableGeometry();
    QRect place = StoredPlace(MainWindow);
    if (place.isEmpty()) {
        place.setSize(available.size() * 4 / 5);
        place.moveCenter(available.center());
    }
    setGeometry(OnScreen(place));
    switch (Show.WindowPos[MainWindow][PosState]) {
    case minimised: showMinimized(); break;
    case maximised: showMaximized(); break;
    default: show();
    }
}

bool MDIHaupt::MDIForm_Load() { return StartProgram(); }

// The output rests while the wall is being changed; a sequence that plays goes on afterwards.
void MDIHaupt::mnuNeueWand_Click() {
    const bool running = Show.AutoXmit.Enabled;
    Show.AutoXmit.Enabled = false;
    frmNeueWand(this).exec();
    Show.AutoXmit.Enabled = running;
}

void MDIHaupt::mnuKillWand_Click() {
    if (!Show.StatusFlags.Has(Status::WallExists)) return;
    if (Host.MsgBox("Soll ich die Wand wirklich löschen?", Buttons::YesNo, ApplicationTitle,
                    Icon::Question) != Answer::No)
        RemoveWall();
}

// The search and the reopening of a card wait and let events run: nothing else is chosen meanwhile, and the
// program's end comes when they have given up.
void MDIHaupt::mnuDMXInit_Click() {
    DrivingInterface driving = PresentInterface();
    menuWidget()->setEnabled(false);
    const auto menuOnAgain = qScopeGuard([this] { menuWidget()->setEnabled(true); });
    bool choose = false;
    Wait([&choose] { choose = InitialiseInterfaces(); });
    if (choose) {
        frmIFS dialog(this);
        if (dialog.exec() == QDialog::Accepted) {
            const std::int16_t type = dialog.SelectedType();
            driving = {type, InterfaceReady(type), false};
            Wait([type] { ChooseInterface(type); });
        } else {
            Wait([&driving] { KeepInterface(driving); });
        }
    }
    while (closePending && !close()) // what was given up comes back when the user stays
        Wait([&driving] { KeepInterface(driving); });
}

void MDIHaupt::Wait(const std::function<void()>& command) {
    const QScopedValueRollback<bool> wait(waiting, true);
    command();
}

// Closing the program ends the work on the card first, and then goes on as usual.
void MDIHaupt::ShowMemoryCard(int command) {
    frmFiles window(this, static_cast<frmFiles::Command>(command));
    memoryCard = &window;
    Wait([&window] { window.exec(); });
    memoryCard = nullptr;
    if (closePending) close();
}

// The images are built from sequence, wall and patch as they go out, and the parameter block is the
// transfer's: nobody changes or saves them meanwhile.
void MDIHaupt::EnableForTransfer(bool runs) {
    for (const char* name :
         {"mnuNeueWand", "mnuKillWand", "mnuConfigLaden", "mnuConfigSpeichern", "mnuSequenceLaden",
          "mnuElement", "mnuPatchfenster", "mnuOptions", "mnuDMXInit", "mnuSequenceToMerger"})
        if (auto* entry = findChild<QAction*>(name)) entry->setEnabled(!runs);
    for (const char* name : {"frmElement", "frmOptions"})
        if (auto* window = findChild<QWidget*>(name)) window->setEnabled(!runs);
    EnableDmxEntries();
    Control->EnableForTransfer(runs);
}

void MDIHaupt::EnableDmxEntries() {
    for (QAction* entry : {mnuDMXStart, mnuDMXStop})
        entry->setEnabled(dmxEntries && !Show.timSendToMerger.Enabled);
}

void MDIHaupt::mnuHilfe_Click() {
    if (!Host.StartEditor(TextOf(FindInFolder(PathOf(Host.ProgramFolder), "quorvane.doc"))))
        Host.MsgBox("Hilfe finden Sie in der Datei QUORVANE.DOC", Buttons::Ok, "Hilfe", Icon::Exclamation);
}

bool MDIHaupt::MDIForm_QueryUnload() {
    CheckFocusedField(this); // what was typed last is asked about too
    return MayClose();
}

// The window state value is not updated here, on purpose: it keeps what was read.
void MDIHaupt::MDIForm_Unload() {
    for (ChildWindow* window : children) window->StorePosition();
    StopOutput();
    StorePlace(MainWindow, isMinimized() || isMaximized() ? normalGeometry() : geometry());
    SaveINI();
}

// Refused until all is done: a fault on the way leaves the program open.
void MDIHaupt::closeEvent(QCloseEvent* event) {
    event->ignore();
    closePending = waiting;
    if (memoryCard) memoryCard->close();
    if (closePending || !MDIForm_QueryUnload()) return;
    MDIForm_Unload();
    event->accept();
}

bool MDIHaupt::MayEndSession(bool mayAsk) { return !mayAsk || MDIForm_QueryUnload(); }

void MDIHaupt::CloseFromOutside() {
    QWidget* dialog = QApplication::activeModalWidget();
    if (!dialog) {
        close();
        return;
    }
    dialog->close();
    QTimer::singleShot(0, this, [this] { CloseFromOutside(); });
}

// On the free area only: the frames of the windows in it hand on what is pressed on them.
bool MDIHaupt::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() != QEvent::MouseButtonPress) return QMainWindow::eventFilter(watched, event);
    const auto* press = static_cast<QMouseEvent*>(event);
    const bool free = !area->viewport()->childAt(press->position().toPoint());
    if (free && press->button() == Qt::RightButton) mnuBearbeiten->popup(press->globalPosition().toPoint());
    return false;
}

} // namespace quorvane
