// Marks of unsaved work that several commands set alike.
#pragma once

namespace quorvane {

// The live scene has changed. It is also a new one while it has no file and no sequence holds it.
void MarkSceneChanged();
// The colour table has changed. It is also a new one while it has no file.
void MarkColourTableChanged();
// The sequence has changed: a scene in it, a time, a remembered selection.
void MarkSequenceChanged();

} // namespace quorvane
