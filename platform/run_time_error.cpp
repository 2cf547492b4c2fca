#include "platform/run_time_error.h"

#include <new>
#include <utility>

namespace zef {
namespace {

const char* StandingSentence(FailureNumber number) {
  switch (number) {
    case FailureNumber::InvalidCall: return "Invalid procedure call or argument";
    case FailureNumber::Overflow: return "Overflow";
    case FailureNumber::OutOfMemory: return "Out of memory";
    case FailureNumber::SubscriptOutOfRange: return "Subscript out of range";
    case FailureNumber::DivisionByZero: return "Division by zero";
    case FailureNumber::TypeMismatch: return "Type mismatch";
    case FailureNumber::OutOfStackSpace: return "Out of stack space";
    case FailureNumber::BadFileNumber: return "Bad file name or number";
    case FailureNumber::FileNotFound: return "File not found";
    case FailureNumber::BadFileMode: return "Bad file mode";
    case FailureNumber::FileNumberTaken: return "File already open";
    case FailureNumber::DiskFull: return "Disk full";
    case FailureNumber::TooManyFiles: return "Too many files";
    case FailureNumber::PermissionDenied: return "Permission denied";
    case FailureNumber::PathFileAccess: return "Path/File access error";
    case FailureNumber::PathNotFound: return "Path not found";
    case FailureNumber::ObjectNotSet: return "Object variable or With block variable not set";
    case FailureNumber::InvalidUseOfNull: return "Invalid use of Null";
    case FailureNumber::KeyExists: return "This key is already associated with an element of this collection";
    case FailureNumber::InvalidArgument: return "The argument is of the wrong type or out of range.";
    case FailureNumber::FileNotOpened: return "The file could not be opened.";
    case FailureNumber::FileNotRead: return "The file could not be read.";
    case FailureNumber::FileNotWritten: return "The file could not be written.";
    case FailureNumber::NoCurrentRecord: return "There is no current record; the operation needs one.";
    case FailureNumber::ItemNotFound: return "The item is not in the collection under the requested name or position.";
    case FailureNumber::ObjectClosed: return "The operation is not allowed when the object is closed.";
    case FailureNumber::ObjectOpen: return "The operation is not allowed when the object is open.";
    case FailureNumber::ProviderNotFound: return "The provider cannot be found.";
    case FailureNumber::TypesDoNotConvert: return "The types of the expression do not match.";
    case FailureNumber::NoTransaction: return "No transaction is open on this connection.";
    case FailureNumber::RowVanished: return "The row cannot be found for updating; it may have been deleted.";
    default: return "The database reported a failure.";
  }
}

}  // namespace

RunTimeError::RunTimeError(FailureNumber number, std::string description)
    : number_(number), description_(std::move(description)) {}

RunTimeError::RunTimeError(FailureNumber number) : RunTimeError(number, StandingSentence(number)) {}

bool RunTimeError::from_provider() const noexcept {
  switch (number_) {
    case FailureNumber::ObjectNotSet:
    case FailureNumber::NoCurrentRecord:
    case FailureNumber::ItemNotFound:
    case FailureNumber::ObjectClosed:
    case FailureNumber::ObjectOpen:
    case FailureNumber::ProviderNotFound: return false;
    default: return true;
  }
}

std::optional<RunTimeError> CurrentFailure() {
  const std::exception_ptr handled = std::current_exception();
  if (!handled) return std::nullopt;
  try {
    std::rethrow_exception(handled);
  } catch (const RunTimeError& failure) {
    return failure;
  } catch (const std::bad_alloc&) {
    return RunTimeError(FailureNumber::OutOfMemory);
  } catch (const std::exception& failure) {
    return RunTimeError(FailureNumber::InvalidCall, failure.what());
  } catch (...) {
    return RunTimeError(FailureNumber::InvalidCall);
  }
}

}  // namespace zef
