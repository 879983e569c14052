// Report columns: the fields of an observation in 80 columns, for all who look into a line or write one.

#pragma once

#include "base/lines.h"

#include <cstddef>

namespace companion::reportColumns {

using tavelinUtils::Field;

inline constexpr std::size_t lineLength = 80;
inline constexpr Field nameField{1, 12};
inline constexpr Field notesBefore{13, 2};
inline constexpr Field note2{15, 1};
inline constexpr Field notes{13, 3}; ///< both of them
inline constexpr Field dateField{16, 10};
inline constexpr Field dayFraction{26, 7};
inline constexpr Field dateAndFraction{16, 17}; ///< both of them
inline constexpr Field rightAscension{33, 12};
inline constexpr Field declination{45, 12}; ///< with its sign
inline constexpr Field unset{57, 9};
inline constexpr Field magnitude{66, 5};
inline constexpr Field bandField{71, 1};
inline constexpr Field bandAndBehind{71, 7}; ///< up to the station
inline constexpr Field ofReceiver{72, 6};
inline constexpr Field station{78, 3};

} // namespace companion::reportColumns
