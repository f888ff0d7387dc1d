// What the processor can do that the program makes use of.
#pragma once

namespace torvale {

// Doubles that one vector register holds, of the instruction sets that wide loops are written for: none, AVX2, AVX-512
// (foundation, doubleword and quadword, vector length).
enum class VectorLanes { kOne = 1, kFour = 4, kEight = 8 };

// The widest that this processor and its operating system have.
VectorLanes WidestLanes();

// How many threads can run at once, at least 1.
int ProcessorThreads();

}  // namespace torvale
