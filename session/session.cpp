#include "session/session.h"

#include "platform/value.h"
#include "session/connecting.h"
#include "session/trap.h"

namespace zef {
namespace {

constexpr std::int32_t kReadWrite = 3;

}  // namespace

void CSession::ClearError() {
  ErrorFlag = false;
  ErrorCode = "0";
  ErrorDescription.clear();
  ErrorProcedure.clear();
}

std::int32_t CSession::GetErrorCode() const { return ToLong(Value(ErrorCode)); }

std::string CSession::GetEntireErrorDesc() const {
  return "[" + ErrorProcedure + "] Error: " + ErrorCode + " - " + ErrorDescription;
}

void CSession::RecordError(const std::string& strProcedure, std::int32_t lngCode, const std::string& strMessage) {
  const std::string message = strMessage;  // it may be a text of this very record
  ErrorProcedure = strProcedure;
  if (lngCode > 0) {
    ErrorCode = std::to_string(lngCode);
    ErrorDescription = message;
  } else if (Errors& errors = Deref(conDBConnection).Errors(); errors.Count() > 0) {
    ErrorCode = std::to_string(errors.Item(0).Number);
    ErrorDescription = errors.Item(0).Description;
  } else {
    const std::optional<RunTimeError> failure = CurrentFailure();
    ErrorCode = std::to_string(failure ? failure->number() : 0);
    ErrorDescription = failure ? failure->description() : std::string();
  }
  ErrorFlag = true;
}

bool CSession::Connect2Database(const std::string& DatabaseName, const std::string& /*UserName*/,
                                const std::string& Password) {
  conDBConnection = MakeRef<Connection>();
  ConnectionString = FileConnectionString(DatabaseName, Password);
  conDBConnection->Mode = kReadWrite;
  conDBConnection->Open(ConnectionString, "", "", -1);
  return Connected = true;
}

bool CSession::Connect2DatabaseCS(const std::string& connection_string) {
  conDBConnection = MakeRef<Connection>();
  conDBConnection->Mode = kReadWrite;
  conDBConnection->Open(connection_string, "", "", -1);
  return Connected = true;
}

bool CSession::DisconnectFromDatabase() {
  Deref(conDBConnection).Close();
  conDBConnection.reset();
  Connected = false;
  return true;
}

bool CSession::ReportMisuse(const char* procedure, const char* description) {
  ErrorDescription = description;
  ErrorProcedure = procedure;
  ErrorFlag = true;
  return false;
}

bool CSession::BeginTransaction() {
  if (TransactionFlag) return ReportMisuse("BeginTransaction", "A transaction is already started.");
  return Trapped(*this, "BeginTransaction", false, [&] {
    Deref(conDBConnection).BeginTrans();
    return TransactionFlag = true;
  });
}

bool CSession::EndTransaction(const char* procedure, void (Connection::*end)()) {
  if (!TransactionFlag) return ReportMisuse(procedure, "No transaction is started.");
  return Trapped(*this, procedure, false, [&] {
    (Deref(conDBConnection).*end)();
    TransactionFlag = false;
    return true;
  });
}

bool CSession::CommitTransaction() { return EndTransaction("CommitTransaction", &Connection::CommitTrans); }

bool CSession::RollbackTransaction() { return EndTransaction("RollbackTransaction", &Connection::RollbackTrans); }

}  // namespace zef
