#include "ui/eveningbench.h"

#include "model/screen.h"
#include "ui/frmNeueWand.h"

#include <QMdiSubWindow>

#include <cmath>

namespace quorvane {

namespace {

constexpr std::size_t FrameLength = 512;

std::size_t At(int index) { return static_cast<std::size_t>(index); }

SimulatedCard PluggedIn() {
    SimulatedCard card;
    card.Base = 0x120;
    card.Model = CardModel::C7300C;
    return card;
}

} // namespace

EveningBench::EveningBench() : card(PluggedIn()) {
    Settings["Interface/Type"] = "2";
    Write("QRTDMX17.BIN", "firmware");
    Host.DlPortReadPortUchar = [this](std::uint32_t port) { return card.ReadPort(port); };
    Host.DlPortWritePortUchar = [this](std::uint32_t port, std::uint8_t value) {
        card.WritePort(port, value);
    };
}

void EveningBench::NextDay() {
    main.reset();
    Show = ShowState{};
    Screen = ScreenCalls{};
    card = PluggedIn();
    StartProgram();
}

void EveningBench::MakeWallByDialog(const char* name) {
    WhenAsked([name](QDialog* asked) {
        auto* settings = dynamic_cast<frmNeueWand*>(asked);
        ASSERT_NE(settings, nullptr);
        QTest::mouseClick(settings->txtfeld[0], Qt::LeftButton);
        for (const char* text : {name, "10", "5"}) { // name, columns, rows
            auto* field = dynamic_cast<QLineEdit*>(settings->focusWidget());
            ASSERT_NE(field, nullptr);
            QTest::keyClick(field, Qt::Key_A, Qt::ControlModifier);
            QTest::keyClicks(field, text);
            QTest::keyClick(field, Qt::Key_Tab);
        }
        QTest::mouseClick(settings->cmdOK, Qt::LeftButton);
    });
    Choose("mnuNeueWand");
}

void EveningBench::SelectByMouse(const std::vector<int>& elements) {
    for (const int element : elements)
        ClickElement(element, element == elements.front() ? Qt::NoModifier : Qt::ControlModifier);
}

void EveningBench::KeyAtWall(Qt::Key key, Qt::KeyboardModifiers modifiers) {
    main->Wand->Open();
    Key(key, modifiers);
}

QPushButton* EveningBench::Transport(int index) {
    return Find<QPushButton>("frmControl", qPrintable(QString("cmdSequence(%1)").arg(index)));
}

QLineEdit* EveningBench::StepText(int index) {
    return Find<QLineEdit>("frmControl", qPrintable(QString("txtSequence(%1)").arg(index)));
}

void EveningBench::Confirm(int index, int number) {
    Replace(StepText(index), std::to_string(number).c_str());
    Key(Qt::Key_Return);
}

void EveningBench::Record(int hold, int blend) {
    Click(Transport(1));
    EXPECT_EQ(SequencerStatus(), "Szene in die Sequenz aufgenommen.");
    Confirm(1, blend); // times typed before would be those of the scene shown then
    Confirm(2, hold);
    scenes.push_back({picture, hold, blend});
}

void EveningBench::DragByTitle(QWidget* window, const QPoint& distance) {
    QWidget* frame = window->parentWidget();
    const QPoint before = frame->pos();
    const QPoint title = frame->mapTo(main.get(), QPoint(frame->width() / 2, 10));
    QTest::mousePress(main->windowHandle(), Qt::LeftButton, {}, title);
    QTest::mouseMove(main->windowHandle(), title + distance);
    QTest::mouseRelease(main->windowHandle(), Qt::LeftButton, {}, title + distance);
    EXPECT_EQ(frame->pos(), before + distance);
}

void EveningBench::SaveAs(const char* entry, const char* name) {
    ChooseFile(name);
    Choose(entry);
}

void EveningBench::ExpectOnWall(const Picture& expected) {
    for (int element = 1; element <= Lamps; ++element) {
        const Levels& colour = expected[At(element - 1)];
        EXPECT_EQ(Element(element), colour) << element;
        if (Show.ElementSelected[element - 1] == 1) continue; // its field shows the highlight
        const QColor mixed(std::min(colour[0] + colour[3], 255), std::min(colour[1] + colour[3], 255),
                           std::min(colour[2] + colour[3], 255));
        // Asked of the field itself: other windows lie over the wall.
        EXPECT_EQ(Light(element)->grab().toImage().pixelColor(4, 4), mixed) << element;
    }
}

EveningBench::Frame EveningBench::FrameOf(const Picture& picture) {
    Frame frame(FrameLength);
    for (int index = 0; index < Lamps; ++index)
        for (int channel = 0; channel < 4; ++channel)
            frame[At(index * 4 + channel)] = picture[At(index)][At(channel)];
    return frame;
}

EveningBench::Frame EveningBench::CardFrame() const {
    Frame frame;
    for (int channel = 1; channel <= static_cast<int>(FrameLength); ++channel)
        frame.push_back(card.Level(channel));
    return frame;
}

// A scene stands for its hold time and the tick that starts the blend after it, then goes into the next one.
std::vector<EveningBench::Frame> EveningBench::Round() const {
    std::vector<Frame> frames;
    for (std::size_t step = 0; step < scenes.size(); ++step) {
        const Frame from = FrameOf(scenes[step].Colours);
        const Frame to = FrameOf(scenes[(step + 1) % scenes.size()].Colours);
        frames.insert(frames.end(), At(scenes[step].Hold + 1), from);
        for (int tick = 1; tick <= scenes[step].Blend; ++tick) {
            Frame between(from);
            for (std::size_t i = 0; i < FrameLength; ++i)
                between[i] = static_cast<int>(
                    std::nearbyint(from[i] + (to[i] - from[i]) * tick / double(scenes[step].Blend)));
            frames.push_back(between);
        }
    }
    return frames;
}

void EveningBench::ExpectRound(std::size_t first) {
    const auto frames = Round();
    for (std::size_t tick = first; tick < frames.size(); ++tick) {
        Ticks(1);
        ASSERT_EQ(CardFrame(), frames[tick]) << "tick " << tick;
        ASSERT_TRUE(card.Started);
    }
}

} // namespace quorvane
