// The transfer of the sequence to the stand-alone play unit, through an ISA card: 255 scene images, one
// at every tick of timSendToMerger, whose number travels in the card parameter block. The output clock is
// off meanwhile, so the two never write the card at the same time.
#pragma once

#include "model/table.h"

#include <cstdint>

namespace quorvane {

// Menu entry "zum Merger über DMX". Refused with a message without an ISA card or while a sequence plays.
void mnuSequenceToMerger_Click();

// One image; the last one ends the transfer and enables the output clock. When the card is gone the
// transfer is abandoned.
void timSendToMerger_Timer();

// The card parameter block as it stands without a transfer: what a file stores, also while one runs.
Table<std::int16_t, 0, 15> ParametersToKeep();

// Ends a running transfer before its time, with the parameter block as it was before. For the program's
// end and when the card is gone or an image cannot be sent; the output clock stays off.
void AbandonTransfer();

} // namespace quorvane
