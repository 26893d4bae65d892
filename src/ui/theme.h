// One calm, dark look for every window: eyes that watch a stage stay adapted to the dark.
#pragma once

class QApplication;

namespace quorvane {

void UseDarkTheme(QApplication& application);

} // namespace quorvane
