// Boxes for whole numbers.
#pragma once

class QLineEdit;

namespace velmora {

/// Lets only whole numbers within the bounds, both included, into `box`; what is refused sounds the
/// beep. Text set from code passes.
void LimitToWholeNumbers(QLineEdit& box, int least, int most);

}  // namespace velmora
