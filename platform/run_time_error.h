#pragma once

#include <cstdint>
#include <exception>
#include <optional>
#include <string>

namespace zef {

/// Numbers of run-time and provider failures, as clients of component libraries know them.
enum class FailureNumber : std::int32_t {
  InvalidCall = 5,
  Overflow = 6,
  OutOfMemory = 7,
  SubscriptOutOfRange = 9,
  DivisionByZero = 11,
  TypeMismatch = 13,
  OutOfStackSpace = 28,
  BadFileNumber = 52,
  FileNotFound = 53,
  BadFileMode = 54,
  FileNumberTaken = 55,
  DiskFull = 61,
  TooManyFiles = 67,
  PermissionDenied = 70,
  PathFileAccess = 75,
  PathNotFound = 76,
  ObjectNotSet = 91,
  InvalidUseOfNull = 94,
  KeyExists = 457,
  InvalidArgument = 3001,
  FileNotOpened = 3002,
  FileNotRead = 3003,
  FileNotWritten = 3004,
  NoCurrentRecord = 3021,
  ItemNotFound = 3265,
  ObjectClosed = 3704,
  ObjectOpen = 3705,
  ProviderNotFound = 3706,
  StatementError = -2147217900,
  NoSuchTable = -2147217865,
  NoSuchColumn = -2147217904,
  ConstraintViolated = -2147217873,
  ValueDoesNotFit = -2147217833,
  UpdateDoesNotFit = -2147217887,
  TypesDoNotConvert = -2147217913,
  TableExists = -2147217857,
  ColumnExists = -2147217858,
  IndexExists = -2147217868,
  RowVanished = -2147217864,
  PasswordRefused = -2147217843,
  NoTransaction = -2147168242,
  FileUnusable = -2147467259,
};

/// The one exception that crosses modules: a number that clients know and a sentence for a person.
/// The description never holds values of a statement; they are people's data and passwords.
class RunTimeError : public std::exception {
 public:
  RunTimeError(FailureNumber number, std::string description);
  /// A failure with the standing sentence of its number.
  explicit RunTimeError(FailureNumber number);

  std::int32_t number() const noexcept { return static_cast<std::int32_t>(number_); }
  FailureNumber code() const noexcept { return number_; }
  const std::string& description() const noexcept { return description_; }
  const char* what() const noexcept override { return description_.c_str(); }

  /// False for failures that only the objects in front of a database raise, such as a closed one; anything else that a
  /// call of an engine raises is the database's and enters the connection's error list.
  bool from_provider() const noexcept;

 private:
  FailureNumber number_;
  std::string description_;
};

/// The failure that is being handled at this moment: what the innermost running `catch` caught, or nothing outside
/// of one. Failures of the standard library are told in the same terms, and anything else that a caller may have caught
/// is 5.
std::optional<RunTimeError> CurrentFailure();

}  // namespace zef
