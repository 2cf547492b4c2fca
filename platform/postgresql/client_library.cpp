#include <dlfcn.h>
#include <libpq-fe.h>

#include <string>

#include "platform/run_time_error.h"

/// The functions of libpq that this engine calls, each passed on to the library. That is loaded with the first of them:
/// it brings some twenty libraries along, which a program that works on files alone neither needs nor waits for.
namespace zef {
namespace {

/// It stays loaded, for libraries that it brings along do not come and go.
void* ClientLibrary() {
  void* const library = dlopen("libpq.so.5", RTLD_NOW | RTLD_LOCAL);
  if (library != nullptr) return library;
  throw RunTimeError(FailureNumber::ProviderNotFound,
                     std::string("The client library of the server cannot be loaded: ") + dlerror() + ".");
}

void* Found(const char* name) {
  static void* const library = ClientLibrary();
  if (void* const function = dlsym(library, name)) return function;
  throw RunTimeError(FailureNumber::ProviderNotFound,
                     std::string("The client library of the server is too old: it has no ") + name + ".");
}

template <auto Own, class... Arguments>
auto PassOn(const char* name, Arguments... arguments) {
  static const auto function = reinterpret_cast<decltype(Own)>(Found(name));
  return function(arguments...);
}

}  // namespace
}  // namespace zef

using zef::PassOn;

// Of a connection.

PGconn* PQconnectdbParams(const char* const* keywords, const char* const* values, int expand) {
  return PassOn<&PQconnectdbParams>(__func__, keywords, values, expand);
}
void PQfinish(PGconn* connection) { PassOn<&PQfinish>(__func__, connection); }
ConnStatusType PQstatus(const PGconn* connection) { return PassOn<&PQstatus>(__func__, connection); }
char* PQerrorMessage(const PGconn* connection) { return PassOn<&PQerrorMessage>(__func__, connection); }
int PQconnectionNeedsPassword(const PGconn* connection) {
  return PassOn<&PQconnectionNeedsPassword>(__func__, connection);
}
const char* PQparameterStatus(const PGconn* connection, const char* name) {
  return PassOn<&PQparameterStatus>(__func__, connection, name);
}
PGTransactionStatusType PQtransactionStatus(const PGconn* connection) {
  return PassOn<&PQtransactionStatus>(__func__, connection);
}
PQnoticeProcessor PQsetNoticeProcessor(PGconn* connection, PQnoticeProcessor processor, void* argument) {
  return PassOn<&PQsetNoticeProcessor>(__func__, connection, processor, argument);
}

// Of statements on their way.

PGresult* PQexec(PGconn* connection, const char* text) { return PassOn<&PQexec>(__func__, connection, text); }
int PQsendPrepare(PGconn* connection, const char* name, const char* text, int count, const Oid* types) {
  return PassOn<&PQsendPrepare>(__func__, connection, name, text, count, types);
}
int PQsendQueryParams(PGconn* connection, const char* text, int count, const Oid* types, const char* const* values,
                      const int* lengths, const int* formats, int result_format) {
  return PassOn<&PQsendQueryParams>(__func__, connection, text, count, types, values, lengths, formats, result_format);
}
int PQsendQueryPrepared(PGconn* connection, const char* name, int count, const char* const* values, const int* lengths,
                        const int* formats, int result_format) {
  return PassOn<&PQsendQueryPrepared>(__func__, connection, name, count, values, lengths, formats, result_format);
}
int PQsetSingleRowMode(PGconn* connection) { return PassOn<&PQsetSingleRowMode>(__func__, connection); }
int PQenterPipelineMode(PGconn* connection) { return PassOn<&PQenterPipelineMode>(__func__, connection); }
int PQpipelineSync(PGconn* connection) { return PassOn<&PQpipelineSync>(__func__, connection); }
int PQexitPipelineMode(PGconn* connection) { return PassOn<&PQexitPipelineMode>(__func__, connection); }
PGresult* PQgetResult(PGconn* connection) { return PassOn<&PQgetResult>(__func__, connection); }

// Of results.

void PQclear(PGresult* result) { PassOn<&PQclear>(__func__, result); }
ExecStatusType PQresultStatus(const PGresult* result) { return PassOn<&PQresultStatus>(__func__, result); }
char* PQresultErrorField(const PGresult* result, int field) {
  return PassOn<&PQresultErrorField>(__func__, result, field);
}
char* PQcmdStatus(PGresult* result) { return PassOn<&PQcmdStatus>(__func__, result); }
char* PQcmdTuples(PGresult* result) { return PassOn<&PQcmdTuples>(__func__, result); }
std::size_t PQresultMemorySize(const PGresult* result) { return PassOn<&PQresultMemorySize>(__func__, result); }
int PQntuples(const PGresult* result) { return PassOn<&PQntuples>(__func__, result); }
int PQnfields(const PGresult* result) { return PassOn<&PQnfields>(__func__, result); }
Oid PQftype(const PGresult* result, int column) { return PassOn<&PQftype>(__func__, result, column); }
int PQgetisnull(const PGresult* result, int row, int column) {
  return PassOn<&PQgetisnull>(__func__, result, row, column);
}
int PQgetlength(const PGresult* result, int row, int column) {
  return PassOn<&PQgetlength>(__func__, result, row, column);
}
char* PQgetvalue(const PGresult* result, int row, int column) {
  return PassOn<&PQgetvalue>(__func__, result, row, column);
}
