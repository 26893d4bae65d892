// A thread that does little, but has to do it on time.
#pragma once

namespace quorvane {

// The calling thread is given a processor as soon as it wakes, also where other programs are busy on all of
// them. It asks for no right that an ordinary user lacks; threads and programs that it starts later do not
// inherit it. Where the system refuses, or knows no such thing (Linux before 6.12), all stays as it was.
void MakeThreadPrompt();

} // namespace quorvane
