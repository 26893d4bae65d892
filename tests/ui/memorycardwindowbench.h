// A started program with a wall, a sequence and a simulated memory card, whose ports take their time on the
// program's clock.
#pragma once

#include "ui/windowbench.h"

#include "devices/cardimages.h"
#include "devices/memorycard.h"
#include "devices/sceneimage.h"
#include "drivers/simulated_memorycard.h"
#include "model/wall.h"
#include "ui/cardview.h"
#include "ui/frmFiles.h"

#include <QLabel>
#include <QListView>
#include <QPushButton>

#include <utility>

namespace quorvane {

class MemoryCardWindowBench : public WindowBench {
protected:
    MemoryCardWindowBench() {
        Host.Seconds = [this] { return now; };
        Host.DoEvents = [this] {
            now += 0.01;
            return RunEvents();
        };
        Host.ServeEvents = [this] { return RunEvents(); };
        Host.vbWRAMC = [this](std::int32_t port, std::int32_t value) {
            now += accessTime;
            Card.WritePort(port, value);
        };
        Host.vbWDRAMC = [this](std::int32_t port, std::int32_t value) {
            now += accessTime;
            Card.WriteData(port, value);
        };
        Host.vbRRAMC = [this](std::int32_t port) {
            now += accessTime;
            ++Reads;
            return Card.ReadPort(port);
        };
    }

    void Start(std::size_t cardSize, int steps = 3) {
        Card.Memory.assign(cardSize, 9);
        StartProgram();
        Show.WallColumns = 2;
        Show.WallRows = 1;
        Show.WallAreaWidth = Show.WallAreaHeight = 600;
        NeueWandInit();
        Show.ChangeFlags = {};
        Show.StepCount = static_cast<std::uint8_t>(steps);
        for (int step = 1; step <= steps; ++step)
            for (int element = 1; element <= 2; ++element)
                Show.SequenceSteps[step][element].Fill(static_cast<std::uint8_t>(step * 2 + element));
    }

    // Opens the window by its menu entry; act is what the user does in it. He leaves it by its own button.
    void InWindow(const char* entry, const std::function<void()>& act) {
        WhenAsked([this, act](QDialog* asked) {
            window = dynamic_cast<frmFiles*>(asked);
            ASSERT_NE(window, nullptr);
            act();
            if (window) Press(frmFiles::Leave);
        });
        Choose(entry);
    }
    QPushButton* Command(int index) { return window->cmdFiles.at(static_cast<std::size_t>(index)); }
    void Press(int index) { Click(Command(index)); }
    std::string Status() { return window->lblStatus->text().toStdString(); }
    std::string Row(int row) {
        return window->view->lstKarte->model()->index(row, 0).data().toString().toStdString();
    }
    int RowCount() { return window->view->lstKarte->model()->rowCount(); }

    void ExpectOnCard(int images) {
        for (int image = 1; image <= images; ++image) {
            const SceneImage expected = BuildSceneImage(image);
            ASSERT_TRUE(std::equal(expected.begin(), expected.end(),
                                   Card.Memory.begin() + std::ptrdiff_t{512} * (image - 1)))
                << image;
        }
    }

    // Done once, at the first chance that events get after the card has taken so many bytes.
    void Meanwhile(std::int64_t writes, std::function<void()> act) {
        afterWrites = writes;
        meanwhile = std::move(act);
    }

    SimulatedMemoryCard Card;
    int Reads = 0;
    QPointer<frmFiles> window;
    double now = 0;
    double accessTime = 2e-6;

private:
    bool RunEvents() {
        if (meanwhile && Card.Writes >= afterWrites) std::exchange(meanwhile, nullptr)();
        QCoreApplication::processEvents();
        return !main->ClosePending();
    }

    std::int64_t afterWrites = 0;
    std::function<void()> meanwhile;
};

} // namespace quorvane
