#pragma once

#include <cstdint>
#include <string>
#include <string_view>

/// Text files open for sequential input or output, by number from 1 to 511, in the single-byte encoding Windows-1252. A
/// number stays taken until its file is closed, whatever fails meanwhile; an opening that fails takes none. Each thread
/// has numbers of its own, so sessions on different threads do not meet; what a thread leaves open is closed with it. A
/// number without a file raises 52, and one whose file is open the other way 54.
namespace zef {

/// The lowest number that is not taken. Raises 67 if all are.
std::int32_t FreeFile();
/// Opens a file under a free number. Raises what `InputFile` does, 55 for a number that is taken, and 52 for one out of
/// range.
void OpenForInput(const std::string& path, std::int32_t number);
/// The same in place of what stands there. Raises what `OutputFile` does, 55 and 52.
void OpenForOutput(const std::string& path, std::int32_t number);
/// The next portion of a file's text; empty at its end. Every byte is a character, line ends too; no byte ends the file
/// early. Raises 75 behind a thousand million characters, more than a column holds.
std::string Input(std::int32_t number);
/// Writes a text as it stands, without a line end of its own.
void Print(std::int32_t number, std::string_view text);
/// Frees the number whether or not the file could be completed.
void CloseFile(std::int32_t number);
/// Gives back what numbers take of the whole process, and closes what any thread has left open. No other thread
/// may be using them; the next use begins anew.
void ReleaseFileNumbers();

}  // namespace zef
