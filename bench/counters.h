#pragma once

/// What a benchmark tells the table: names of its counters, and the label of a row that counts bytes and no time.
namespace zef::bench {

inline constexpr char kOurs[] = "ours";
inline constexpr char kByHand[] = "by_hand";
inline constexpr char kRatio[] = "ratio";
inline constexpr char kTarget[] = "target";
inline constexpr char kBytes[] = "bytes";

}  // namespace zef::bench
