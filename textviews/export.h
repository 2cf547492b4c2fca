#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "calendar/item.h"
#include "platform/text_file.h"
#include "session/fields_array.h"
#include "session/trap.h"

/// The text export: one line a field, the label and directly behind it the value. Lines end in CR LF.
namespace zef {

inline constexpr char kLineEnd[] = "\r\n";

/// A line for each row that has a label.
std::string Lines(const FieldsArray& rows);
/// Opens a file for output under a free number, which is the result.
std::int32_t OpenExport(const std::string& path);
/// The line above a child's lines.
void PrintHeading(std::int32_t file, std::string_view heading);

/// The lines of a record; nothing if its fields could not be had, which it has recorded.
template <class R>
std::optional<std::string> FieldLines(const R& record) {
  FieldsArray rows;
  std::int32_t count = 0;
  if (!record.GetFieldsArray(FN_SERIALIZE, rows, count)) return std::nullopt;
  return Lines(rows);
}

/// `Save2File` of a record that writes to its owner's file.
template <class R>
bool SaveToOpenFile(const R& record, std::string_view procedure, std::int32_t file) {
  return Trapped(record.Session(), procedure, false, [&] {
    Deref(record.Session()).ClearError();
    const std::optional<std::string> lines = FieldLines(record);
    if (lines) Print(file, *lines);
    return lines.has_value();
  });
}

/// `Save2File` of a record with a file of its own; `print_children`, given its number, tells whether all went well. On
/// every path but the last the file stays open: clients know it that way.
template <class R, class PrintChildren>
bool SaveToFile(const R& record, std::string_view procedure, const std::string& path, PrintChildren&& print_children) {
  return Trapped(record.Session(), procedure, false, [&] {
    Deref(record.Session()).ClearError();
    const std::optional<std::string> lines = FieldLines(record);
    if (!lines) return false;
    const std::int32_t file = OpenExport(path);
    Print(file, *lines);
    if (!print_children(file)) return false;
    CloseFile(file);
    return true;
  });
}

/// A heading and a child's lines; false if the child could not write them.
template <class Child>
bool PrintSection(std::int32_t file, std::string_view heading, const Ref<Child>& child) {
  PrintHeading(file, heading);
  return Deref(child).Save2File(file);
}

/// The children of an event or a task. The notification stands there twice, as readers of these files expect.
template <class Derived>
bool PrintChildren(std::int32_t file, const Item<Derived>& item) {
  return PrintSection(file, "Notification", item.Notification) &&
         PrintSection(file, "Notification", item.Notification) && PrintSection(file, "Recurrence", item.Recurrence);
}

}  // namespace zef
