#pragma once

#include <fmt/format.h>

#include <string>

#include "bench/by_hand_contact.h"

/// The statements of the code by hand for a contact's many columns: numbers, dates and texts in this order.
namespace zef::bench {

inline constexpr int kContactNumbers = 3;
inline constexpr int kContactDates = 4;
inline constexpr int kTextCount = static_cast<int>(kTextColumns.size());

inline std::string ContactColumns() {
  std::string columns =
      "CNT_ID, CNT_FolderID, CNT_CategoryID, CNT_BirthDate, CNT_Anniversary, CNT_LastMeetingDate, CNT_DateLastUpdate";
  for (const char* name : kTextColumns) columns.append(", CNT_").append(name);
  return columns;
}

inline std::string InsertContactText() {
  std::string values = "?1";
  for (int i = 2; i <= kContactNumbers + kContactDates + kTextCount; ++i) values += fmt::format(", ?{}", i);
  return "INSERT INTO Contacts (" + ContactColumns() + ") VALUES (" + values + ")";
}

inline std::string UpdateContactText() {
  std::string text =
      "UPDATE Contacts SET CNT_ID=?1, CNT_FolderID=?2, CNT_CategoryID=?3, CNT_BirthDate=?4, CNT_Anniversary=?5, "
      "CNT_LastMeetingDate=?6, CNT_DateLastUpdate=?7";
  for (int i = 0; i < kTextCount; ++i) {
    text +=
        fmt::format(", CNT_{}=?{}", kTextColumns[static_cast<std::size_t>(i)], kContactNumbers + kContactDates + i + 1);
  }
  return text + " WHERE CNT_ID=?1";
}

}  // namespace zef::bench
