#pragma once

/// What a benchmark tells the table: names of its counters, and the labels of rows whose target is no ratio.
namespace zef::bench {

inline constexpr char kOurs[] = "ours";
inline constexpr char kByHand[] = "by_hand";
inline constexpr char kRatio[] = "ratio";
inline constexpr char kTarget[] = "target";
inline constexpr char kBytes[] = "bytes";      ///< counts bytes and no time
inline constexpr char kSeconds[] = "seconds";  ///< the time of one operation of ours has a target

}  // namespace zef::bench
