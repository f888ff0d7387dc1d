// The unit of a 32-bit number, where units of one kind are neighbours; the compiler takes all of them for one type.
#pragma once

namespace torvale {

using Feet = float;
using Inches = float;
using SquareFeet = float;
using SquareInches = float;

}  // namespace torvale
