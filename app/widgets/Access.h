// What a screen reader is told, and may do, where the toolkit leaves something out.
#pragma once

namespace velmora {

/// Calls charts charts, and has a screen reader's press of a tick or an option do what a click
/// does: left alone, it would change the tick without the program hearing of it.
void InstallAccess();

}  // namespace velmora
