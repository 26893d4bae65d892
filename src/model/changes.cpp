#include "model/changes.h"

#include "model/show.h"

namespace quorvane {

void MarkSceneChanged() {
    Show.ChangeFlags.Set(Change::SceneChanged);
    if (Show.SceneFile.empty() && !Show.StatusFlags.Has(Status::SequenceExists))
        Show.ChangeFlags.Set(Change::SceneNew);
}

void MarkColourTableChanged() {
    Show.ChangeFlags.Set(Change::ColourTableChanged);
    if (Show.ColourTableFile.empty()) Show.ChangeFlags.Set(Change::ColourTableNew);
}

void MarkSequenceChanged() {
    Show.ChangeFlags.Set(Change::SequenceChanged);
    Show.ChangeFlags.Set(Change::SceneChanged); // the guard asks only when both are set
}

} // namespace quorvane
