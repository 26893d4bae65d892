// The commands that load and save the four kinds of show file: wall configuration, colour table, scene
// and sequence. Each asks for a file, unless SaveToCurrentFile is set and there is a current one, tells the
// user how it went and never leaves by an exception. Saving gives true when the file was written.
#pragma once

namespace quorvane {

void LoadConfiguration();
bool SaveConfiguration();
void LoadColourTable();
bool SaveColourTable();
void LoadScene();
bool SaveScene();
void LoadSequence();
bool SaveSequence();

} // namespace quorvane
