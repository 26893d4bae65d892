// The memory card window: finds the card, writes the sequence to it, reads it back and compares it. While it
// works, everything that would begin anew is off; the show goes on playing. Leaving the window gives the
// work up first.
#pragma once

#include <QDialog>

#include <array>
#include <functional>

class QLabel;
class QLayout;
class QProgressBar;
class QPushButton;

namespace quorvane {

class CardView;

class frmFiles : public QDialog {
public:
    // Indexes of cmdFiles.
    enum Command : int { Detect, WriteCard, ReadBack, Abort, Leave };

    // The button chosen first is the one that Enter presses.
    frmFiles(QWidget* parent, Command first);
    ~frmFiles() override;

    std::array<QPushButton*, 5> cmdFiles{};
    QPushButton* cmdVergleichen;
    CardView* view;
    QLabel* lblFortschritt; // what is being written
    QLabel* lblRestzeit;
    QProgressBar* prgFortschritt;
    QLabel* lblStatus;

    // Escape: gives the work up, or leaves when there is none.
    void reject() override;
    void done(int result) override;

protected:
    void closeEvent(QCloseEvent* event) override;

private:
    void MakeButtons();
    QLayout* Arrangement();
    void FillScreen();
    void Place();

    void cmdFiles_Click(int index);
    void cmdVergleichen_Click();
    void Work(const std::function<void()>& command);
    void ShowWorking(bool working);
    void ShowProgress(int done, int all);
    void ReadCard();
    void Compare();

    bool busy = false;
    bool leaving = false;
    double started = 0; // Host.Seconds when the bytes began to move
    double shownAt = 0; // and when progress was last shown
};

} // namespace quorvane
