#include "ui/frmFiles.h"

#include "devices/cardimages.h"
#include "devices/memorycard.h"
#include "model/screen.h"
#include "model/show.h"
#include "platform/host.h"
#include "ui/cardview.h"
#include "ui/geometry.h"
#include "ui/shown.h"

#include <QCloseEvent>
#include <QHBoxLayout>
#include <QLabel>
#include <QListView>
#include <QProgressBar>
#include <QPushButton>
#include <QScopeGuard>
#include <QScreen>

namespace quorvane {

namespace {

constexpr int Margin = 12;  // pixels
constexpr int Spacing = 8;  // between controls that belong together
constexpr int Section = 12; // between groups of them

std::size_t At(int index) { return static_cast<std::size_t>(index); }

struct ButtonText {
    const char* Caption;
    const char* ToolTip;
};

constexpr std::array<ButtonText, 5> buttonTexts{{
    {"Karte &erkennen", "Sucht die Memorykarte und ihre Größe"},
    {"Sequenz &schreiben", "Schreibt die Sequenz auf die Memorykarte"},
    {"Karte &lesen", "Zeigt, was auf der Memorykarte steht"},
    {"&Abbrechen", "Bricht ab, was gerade läuft"},
    {"S&chließen", ""},
}};

QPushButton* Button(const QString& name, const ButtonText& text) {
    auto* button = new QPushButton(text.Caption);
    button->setObjectName(name);
    button->setAccessibleName(QString(text.Caption).remove('&'));
    button->setToolTip(text.ToolTip);
    return button;
}

QLabel* Label(const char* name, const char* accessibleName) {
    auto* label = new QLabel;
    label->setObjectName(name);
    label->setAccessibleName(accessibleName);
    label->setTextFormat(Qt::PlainText);
    return label;
}

QString Duration(double seconds) {
    const int whole = static_cast<int>(seconds) + 1;
    return whole < 60 ? QString("noch etwa %1 s").arg(whole)
                      : QString("noch etwa %1 min %2 s").arg(whole / 60).arg(whole % 60);
}

} // namespace

frmFiles::frmFiles(QWidget* parent, Command first)
    : QDialog(parent), cmdVergleichen(Button("cmdVergleichen",
                                             {"Karte &vergleichen", "Vergleicht die Karte mit der Sequenz"})),
      view(new CardView), lblFortschritt(Label("lblFortschritt", "Was geschrieben wird")),
      lblRestzeit(Label("lblRestzeit", "Restzeit")), prgFortschritt(new QProgressBar),
      lblStatus(Label("lblStatus", "Statuszeile der Memorykarte")) {
    setObjectName("frmFiles");
    setWindowTitle("Memory Card");
    MakeButtons();
    prgFortschritt->setObjectName("prgFortschritt");
    prgFortschritt->setAccessibleName("Fortschritt");
    prgFortschritt->setRange(0, 1);
    lblStatus->setWordWrap(true);
    lblStatus->setAlignment(Qt::AlignLeft | Qt::AlignTop);
    lblStatus->setMinimumHeight(2 * lblStatus->fontMetrics().lineSpacing());
    setLayout(Arrangement());
    FillScreen();
    ShowWorking(false);
    cmdFiles.at(At(first))->setDefault(true);
    cmdFiles.at(At(first))->setFocus();
    Place();
}

frmFiles::~frmFiles() {
    Screen.MemCardStatus = nullptr;
    Screen.MemCardImage = nullptr;
    Screen.MemCardProgress = nullptr;
}

void frmFiles::MakeButtons() {
    for (int index = Detect; index <= Leave; ++index) {
        QPushButton* button = Button(QString("cmdFiles(%1)").arg(index), buttonTexts.at(At(index)));
        connect(button, &QPushButton::clicked, this, [this, index] { cmdFiles_Click(index); });
        cmdFiles.at(At(index)) = button;
    }
    connect(cmdVergleichen, &QPushButton::clicked, this, [this] { cmdVergleichen_Click(); });
}

// What is done with the card above, what it holds in the middle, how far the work has come below.
QLayout* frmFiles::Arrangement() {
    auto* commands = new QHBoxLayout;
    commands->setSpacing(Spacing);
    for (QPushButton* button : {cmdFiles[Detect], cmdFiles[WriteCard], cmdFiles[ReadBack], cmdVergleichen})
        commands->addWidget(button);
    commands->addStretch();
    auto* progress = new QHBoxLayout;
    progress->addWidget(lblFortschritt, 1);
    progress->addWidget(lblRestzeit);
    auto* ends = new QHBoxLayout;
    ends->setSpacing(Spacing);
    ends->addWidget(lblStatus, 1);
    ends->addWidget(cmdFiles[Abort], 0, Qt::AlignBottom);
    ends->addWidget(cmdFiles[Leave], 0, Qt::AlignBottom);

    auto* layout = new QVBoxLayout;
    layout->setContentsMargins(Margin, Margin, Margin, Margin);
    layout->setSpacing(Spacing);
    layout->addLayout(commands);
    layout->addSpacing(Section - Spacing);
    layout->addWidget(view, 1);
    layout->addSpacing(Section - Spacing);
    layout->addLayout(progress);
    layout->addWidget(prgFortschritt);
    layout->addLayout(ends);
    return layout;
}

void frmFiles::FillScreen() {
    Screen.MemCardStatus = [this](std::string_view text) { lblStatus->setText(Shown(text)); };
    Screen.MemCardImage = [this](std::string_view text) { lblFortschritt->setText(Shown(text)); };
    Screen.MemCardProgress = [this](std::int32_t bytes, std::int32_t all) { ShowProgress(bytes, all); };
}

void frmFiles::Place() {
    const QRect stored = StoredPlace(MemoryCardWindow);
    if (stored.isEmpty()) {
        resize(sizeHint().expandedTo({0, 480}));
        return;
    }
    const QRect place = MovedIntoView(stored, screen()->availableGeometry());
    resize(place.size());
    move(place.topLeft());
}

void frmFiles::cmdFiles_Click(int index) {
    switch (index) {
    case Detect: Work([] { SearchMemCard(); }); break;
    case WriteCard: Work(WriteMemCard); break;
    case ReadBack: Work([this] { ReadCard(); }); break;
    case Abort: Show.MemCardAbort = MemCardGivenUp; break;
    default: close();
    }
}

void frmFiles::cmdVergleichen_Click() {
    Work([this] { Compare(); });
}

// The view is emptied first: rows that came into sight while the card is written would turn its address away.
void frmFiles::Work(const std::function<void()>& command) {
    if (busy) return;
    view->ShowCard(0);
    {
        QWidget* pressed = focusWidget();
        ShowWorking(true);
        const auto finished = qScopeGuard([this, pressed] {
            ShowWorking(false);
            if (pressed) pressed->setFocus();
        });
        command();
    }
    if (leaving) QDialog::reject();
}

void frmFiles::ShowWorking(bool working) {
    busy = working;
    view->lstKarte->setFocus(); // what had the focus is about to be disabled
    for (int index = Detect; index <= ReadBack; ++index) cmdFiles.at(At(index))->setEnabled(!working);
    cmdVergleichen->setEnabled(!working);
    cmdFiles[Abort]->setEnabled(working);
    prgFortschritt->setRange(0, working ? 0 : 1); // moves to and fro until there is something to count
    prgFortschritt->reset();
    lblFortschritt->clear();
    lblRestzeit->clear();
}

// Ten times a second is as much as anyone can see.
void frmFiles::ShowProgress(int bytes, int all) {
    constexpr double rest = 0.1;
    const double now = Host.Seconds();
    if (bytes == 0) started = now;
    if (bytes > 0 && bytes < all && now - shownAt < rest) return;
    shownAt = now;
    prgFortschritt->setRange(0, all);
    prgFortschritt->setValue(bytes);
    if (bytes > 0) lblRestzeit->setText(Duration((now - started) * (all - bytes) / bytes));
}

void frmFiles::ReadCard() {
    if (SearchMemCard()) view->ShowCard(Show.MemCardSize);
}

// The row with the difference is shown among its neighbours.
void frmFiles::Compare() {
    const auto difference = CompareMemCard();
    if (!difference || Show.MemCardAbort != 0) return;
    view->ShowCard(Show.MemCardSize);
    view->GoTo(*difference);
}

void frmFiles::reject() {
    if (busy)
        Show.MemCardAbort = MemCardGivenUp;
    else
        QDialog::reject();
}

void frmFiles::done(int result) {
    StorePlace(MemoryCardWindow, {pos(), size()});
    QDialog::done(result);
}

void frmFiles::closeEvent(QCloseEvent* event) {
    if (!busy) {
        QDialog::closeEvent(event);
        return;
    }
    leaving = true;
    Show.MemCardAbort = MemCardLeft;
    event->ignore();
}

} // namespace quorvane
