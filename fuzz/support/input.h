#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <string>

/// What every fuzzer defines: does with the bytes what it tests, and ends the program if that goes wrong.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

namespace zef::fuzz {

/// Does the work of one input on a thread of its own, which takes along what the library keeps for each thread, in a
/// working folder that is the temporary folder as well and is emptied behind it. The clock stands still.
void RunApart(const std::function<void()>& work);
/// A finding: tells it and ends the program.
[[noreturn]] void Report(const std::string& finding);

}  // namespace zef::fuzz
