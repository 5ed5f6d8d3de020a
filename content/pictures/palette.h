// The colours that all pictures share.
#pragma once

#include <QColor>

namespace vorna::palette {

inline const QColor paper{0xFF, 0xFF, 0xFF};
inline const QColor ink{0x1D, 0x24, 0x26};
inline const QColor secondInk{0x53, 0x5D, 0x5C};
inline const QColor line{0xDD, 0xD8, 0xCD};
inline const QColor accent{0x17, 0x65, 0x5A};
inline const QColor soft{0xDD, 0xEB, 0xE6};
inline const QColor mark{0xC3, 0x26, 0x1B};

} // namespace vorna::palette
