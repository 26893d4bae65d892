// The bench with a sequence to lose, texts of sequences of any size, and what the loader says.
#pragma once

#include "files/filesbench.h"

#include "files/showfiles.h"

namespace quorvane {

class SequenceFile : public FilesBench {
protected:
    void SetUp() override {
        MakeReferenceWall();
        Show.VersionText = "V 1.21";
    }
    void Load(const std::string& bytes) {
        Offer("abend.QSQ", bytes);
        LoadSequence();
    }
    std::string Text() const { return Reference("small.QSQ"); }
    // A sequence whose step s has red level s + 10 e in element e; times hold s, blend s + 4.
    std::string TextOf(int columns, int rows, int steps) const {
        const int elements = columns * rows;
        std::string levels, times, flags;
        for (int step = 1; step <= steps; ++step) {
            for (int element = 1; element <= elements; ++element)
                levels +=
                    (levels.empty() ? "" : ",") + std::to_string((step + 10 * element) % 256) + ",0,0,0";
            times += (times.empty() ? "" : ",") + std::to_string(step) + "," + std::to_string(step + 4);
        }
        for (int slot = 0; slot < 10; ++slot)
            for (int element = 1; element <= elements; ++element)
                flags += (flags.empty() ? "" : ",") + std::to_string((slot + element) % 2);
        return Lines({"Sequence von QUORVANE 99", "[Config]", "ElementeMax =    " + std::to_string(elements),
                      "Sequencenmax =    " + std::to_string(steps), "Speed =   40", "[WALL]",
                      "Xmax =  " + std::to_string(columns), "Ymax =  " + std::to_string(rows), "[OTHERFILES]",
                      "", "", "[Sequence]", levels, "[HOLDBLEND]", times, "[Selections]", flags});
    }
    void HaveSequence() {
        Show.StatusFlags.Set(Status::SequenceExists);
        Show.StepCount = 7;
        Show.CurrentStep = 3;
        Show.SequenceFile = "alt.QSQ";
        Show.SequenceSteps[1][1][1] = 200;
        Show.Selections[0][0] = 1;
    }
    void ExpectOldSequence() {
        EXPECT_EQ(Show.StepCount, 7);
        EXPECT_EQ(Show.CurrentStep, 3);
        EXPECT_EQ(Show.SequenceSteps[1][1][1], 200);
        EXPECT_EQ(Show.Selections[0][0], 1);
        EXPECT_EQ(Show.ElementValue[1][1], 0);
    }
};

inline const std::string ImportQuestion =
    "Sequenz wurde auf einer Wand mit einer anderen Anzahl an Elementen erstellt. Soll ich Importieren ?";
inline const std::string StepsFailure = "Fehler beim Laden der Sequenzdaten.";
inline const std::string AnyFailure = "Fehler beim Laden der Sequenz";
inline const std::string NoTimes = "Keine Blend- und Haltezeiten gefunden , nehme Standartwerte.";
inline const std::string NoSteps = "Datei enthielt keine Sequenzerdaten oder ist beschädigt.";

} // namespace quorvane
