// Exit statuses of `torvale_batch`.
#pragma once

namespace torvale {

inline constexpr int kBatchDone = 0;
inline constexpr int kBatchRefused = 1;        // all was worked through; some fields or designs have no result
inline constexpr int kBatchNotUnderstood = 2;  // the command line or the table; nothing was done
inline constexpr int kBatchNotWritten = 3;     // the results could not be written
inline constexpr int kBatchStopped = 130;      // by Ctrl+C; the same command goes on from there

}  // namespace torvale
