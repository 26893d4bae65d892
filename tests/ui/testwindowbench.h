// The DMX test window beside a wall of three elements, with an interface of any kind behind it.
#pragma once

#include "ui/wallbench.h"

#include "drivers/simulated_card.h"
#include "ui/field.h"
#include "ui/frmColor.h"
#include "ui/frmDMX.h"

#include <QMdiArea>
#include <QMdiSubWindow>
#include <QPushButton>
#include <QSlider>

#include <vector>

namespace quorvane {

class TestWindowBench : public WallBench {
protected:
    // Plugs in an interface of that type and starts the program on it, with the window open.
    void StartWith(std::int16_t type) {
        PlugIn(type);
        StartWithWall(3, 1);
        OpenTest();
    }
    void PlugIn(std::int16_t type) {
        Settings["Interface/Type"] = std::to_string(type);
        if (type == NoInterface) Answer(QMessageBox::Ok); // no interface is chosen
        if (type == IsaCardB || type == IsaCardC) PlugInCard(type);
        Host.DMXSEND = [this](std::int32_t*, std::int32_t* frame) {
            CardFrames.emplace_back(frame, frame + DmxChannels);
            return 0;
        };
    }
    void OpenTest() { Choose("mnuDMXTest"); }
    void CloseTest() { Frame()->close(); }
    QMdiSubWindow* Frame() { return qobject_cast<QMdiSubWindow*>(main->Dmx->parentWidget()); }

    QSlider* Fader(int index) { return Find<QSlider>("frmDMX", Named("ScrDMX", index).c_str()); }
    QLineEdit* ChannelField(int index) { return Find<QLineEdit>("frmDMX", Named("txtPatch", index).c_str()); }
    QLineEdit* Output(int index) { return Find<QLineEdit>("frmDMX", Named("txtDMX", index).c_str()); }
    QPushButton* Button() { return Find<QPushButton>("frmDMX", "cmdDMX"); }
    std::string StatusText() { return Find<QLabel>("frmDMX", "lblStatus")->text().toStdString(); }
    bool NoticeIsSeen() { return Find<QFrame>("frmDMX", "Frame1")->isVisible(); }
    // The window's ground as it stands on the screen.
    QColor Ground() { return main->Dmx->grab().toImage().pixelColor(2, 2); }
    static bool InTestMode() { return Show.StatusFlags.Has(Status::TestMode); }

    // By the keys of the slider, large steps first.
    void Move(int index, int level) {
        QSlider* slider = Fader(index);
        slider->setFocus(Qt::TabFocusReason);
        while (level - slider->value() >= 10) Key(Qt::Key_PageUp);
        while (slider->value() - level >= 10) Key(Qt::Key_PageDown);
        while (slider->value() < level) Key(Qt::Key_Up);
        while (slider->value() > level) Key(Qt::Key_Down);
    }
    void Replace(int index, const char* text) {
        Click(ChannelField(index));
        Key(Qt::Key_A, Qt::ControlModifier);
        Key(Qt::Key_Delete);
        Type(text);
    }
    // Replaces a row's channel and leaves the field by Tab.
    void SetChannel(int index, const char* text) {
        Replace(index, text);
        Key(Qt::Key_Tab);
    }
    std::vector<int> Outputs() {
        std::vector<int> values;
        for (int index = 0; index < 8; ++index) values.push_back(Output(index)->text().toInt());
        return values;
    }

    // What leaves for the lamps at the next tick, channel 1 first: from the card's memory, or as the driver
    // library is handed it. Empty when nothing leaves.
    std::vector<int> NextFrame() {
        Frames.clear();
        CardFrames.clear();
        Ticks(1);
        switch (Show.InterfaceType) {
        case IsaCardB:
        case IsaCardC: {
            std::vector<int> frame;
            for (int channel = 1; channel <= DmxChannels; ++channel) frame.push_back(Card().Level(channel));
            return frame;
        }
        case UsbInterface: return Frames.empty() ? std::vector<int>() : WholeNumbers(Frames.back());
        default: return CardFrames.empty() ? std::vector<int>() : CardFrames.back();
        }
    }
    SimulatedCard& Card() { return Bus.Cards.front(); }
    // A frame that is dark but for these channels.
    static std::vector<int> FrameOf(const std::vector<std::pair<int, int>>& channels) {
        std::vector<int> frame(DmxChannels);
        for (const auto& [channel, level] : channels) frame.at(static_cast<std::size_t>(channel - 1)) = level;
        return frame;
    }

    static constexpr std::int16_t EveryInterface[] = {IsaCardB, IsaCardC, UsbInterface, PcmciaCard, PciCard};
    // Ends the program without a question and forgets everything about it.
    void StartAfresh() {
        main.reset();
        Show = ShowState{};
        Bus.Cards.clear();
    }

    void PlugInCard(std::int16_t type) {
        SimulatedCard card;
        card.Model = type == IsaCardB ? CardModel::C7300A : CardModel::C7300C;
        Bus.Cards.push_back(card);
        Write("QRADMX12.BIN", "first");
        Write("QRTDMX16.BIN", "second one");
        Write("QRTDMX17.BIN", "system C");
        Host.DlPortReadPortUchar = [this](std::uint32_t port) { return Bus.ReadPort(port); };
        Host.DlPortWritePortUchar = [this](std::uint32_t port, std::uint8_t value) {
            Bus.WritePort(port, value);
        };
    }

    SimulatedBus Bus;
    std::vector<std::vector<int>> CardFrames; // handed to the card driver library

private:
    static std::string Named(const char* name, int index) {
        return std::string(name) + "(" + std::to_string(index) + ")";
    }
    static std::vector<int> WholeNumbers(const std::vector<std::uint8_t>& bytes) {
        return {bytes.begin(), bytes.end()};
    }
};

} // namespace quorvane
