#pragma once

#include <string>

#include "client/arguments.h"
#include "client/style.h"

namespace zef::client {

/// The commands on records of any kind; each gives what is to be printed.
std::string ListRecords(const Arguments& arguments, const Screen& screen);
std::string AddRecord(const Arguments& arguments, const Screen& screen);
std::string ShowRecord(const Arguments& arguments, const Screen& screen);
std::string SetRecord(const Arguments& arguments, const Screen& screen);
std::string DeleteRecord(const Arguments& arguments, const Screen& screen);
std::string FinishTask(const Arguments& arguments, const Screen& screen);
std::string CopyFolder(const Arguments& arguments, const Screen& screen);
std::string FindContact(const Arguments& arguments, const Screen& screen);
std::string ExportRecord(const Arguments& arguments, const Screen& screen);
std::string SaveAttachment(const Arguments& arguments, const Screen& screen);

}  // namespace zef::client
