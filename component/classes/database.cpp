#include "component/binding.h"
#include "component/enumerator.h"
#include "component/table.h"
#include "platform/backup.h"
#include "platform/engine.h"
#include "platform/recordset.h"

/// The objects behind `conDBConnection`: reached, not created. Errors and Error are sides of a connection, Fields and
/// Field of a record set; a part of an object is told by its position.
namespace zef::component {

template <>
struct SelfOf<Errors> {
  static Errors& In(const Call& call) { return static_cast<Connection*>(call.object.address)->Errors(); }
};
template <>
struct SelfOf<Error> {
  static const Error& In(const Call& call) { return SelfOf<Errors>::In(call).Item(call.object.part); }
};
template <>
struct SelfOf<Fields> {
  static Fields In(const Call& call) { return Fields(*static_cast<Recordset*>(call.object.address)); }
};
template <>
struct SelfOf<Field> {
  static Field In(const Call& call) { return SelfOf<Fields>::In(call).Item(call.object.part); }
};

namespace {

template <class Side>
void Show(const Call& call, std::int32_t part) {
  if (call.result == nullptr) return;
  call.result->pdispVal = Face::Of(ClassOf<Side>(), {call.object.address, part});
  call.result->vt = VT_DISPATCH;
}

template <class Side>
constexpr Member SideMember(std::string_view name) {
  return {
      .name = name, .kind = Kind::Property, .type = {VT_DISPATCH, kNameOf<Side>, false}, .get = [](const Call& call) {
        Show<Side>(call, 0);
      }};
}

/// A property `Item` and an enumerator, for what holds parts.
template <class Part>
constexpr Member ItemMember(void (*get)(const Call&)) {
  Member member{.name = "Item", .kind = Kind::Property, .type = {VT_DISPATCH, kNameOf<Part>, false}, .get = get};
  member.arguments[0] = {.name = "Index", .type = {VT_VARIANT, {}, false}};
  member.argument_count = 1;
  return member;
}

template <class Whole, class Part>
bool PartAt(Object object, std::int32_t position, VARIANT& element) {
  const Call call{{object.address, 0}, {}, &element};
  if (position >= SelfOf<Whole>::In(call).Count()) return false;
  Show<Part>(call, position);
  return true;
}

template <class Whole, class Part>
constexpr Member EnumeratorMember() {
  return {.name = "NewEnum",
          .kind = Kind::Enumerator,
          .type = {VT_UNKNOWN, kNameOf<Part>, false},
          .get = [](const Call& call) {
            if (call.result == nullptr) return;
            call.result->punkVal = new Enumerator(ClassOf<Whole>(), call.object, &PartAt<Whole, Part>);
            call.result->vt = VT_UNKNOWN;
          }};
}

void FieldItem(const Call& call) {
  const PositionOrKey index = Passed<PositionOrKey, PositionOrKey>(call, 0).Pass();
  Fields fields = SelfOf<Fields>::In(call);
  Show<Field>(call, std::visit([&](const auto& which) { return fields.Item(which).Position(); }, index));
}

void ErrorItem(const Call& call) {
  const Long index = Passed<Long, Long>(call, 0).Pass();
  SelfOf<Errors>::In(call).Item(index);
  Show<Error>(call, index);
}

Long ConnectionState(const Connection& connection) { return connection.IsOpen() ? 1 : 0; }
Long RecordsetState(const Recordset& recordset) { return recordset.IsOpen() ? 1 : 0; }
/// `EOF` is a macro of the language.
bool IsAtEnd(const Recordset& recordset) { return recordset.EndOfFile(); }
Long NumberOf(const Error& error) { return error.Number; }
const Text& DescriptionOf(const Error& error) { return error.Description; }
void MakeDatabase(const Connection&, const Text& connection_string) { CreateDatabase(connection_string); }
void CopyDatabase(const Connection&, const Text& connection_string, const Text& file) {
  BackUpDatabase(connection_string, file, [](std::int64_t, std::int64_t) {});
}

using OfConnection = Members<Connection>;
constexpr Member kConnection[] = {
    OfConnection::Property<&Connection::Mode, Long>("Mode"),
    OfConnection::ReadOnly<&ConnectionState, Long()>("State"),
    OfConnection::Function<&Connection::Open, void(Text, Optional<Text>, Optional<Text>, Optional<Long, -1>)>(
        "Open", "ConnectionString", "UserID", "Password", "Options"),
    OfConnection::Function<&Connection::Close, void()>("Close"),
    OfConnection::Function<&Connection::BeginTrans, Long()>("BeginTrans"),
    OfConnection::Function<&Connection::CommitTrans, void()>("CommitTrans"),
    OfConnection::Function<&Connection::RollbackTrans, void()>("RollbackTrans"),
    OfConnection::Function<&Connection::Execute, Ref<Recordset>(Text, Optional<Long, -1>)>("Execute", "CommandText",
                                                                                           "Options"),
    SideMember<Errors>("Errors"),
    OfConnection::Function<&MakeDatabase, void(Text)>("CreateDatabase", "ConnectionString"),
    OfConnection::Function<&CopyDatabase, void(Text, Text)>("BackUpDatabase", "ConnectionString", "FileName"),
};

using OfErrors = Members<Errors>;
constexpr Member kErrors[] = {
    OfErrors::ReadOnly<&Errors::Count, Long()>("Count"),
    ItemMember<Error>(&ErrorItem),
    EnumeratorMember<Errors, Error>(),
    OfErrors::Function<&Errors::Clear, void()>("Clear"),
};

using OfError = Members<Error>;
constexpr Member kError[] = {
    OfError::ReadOnly<&NumberOf, Long()>("Number"),
    OfError::ReadOnly<&DescriptionOf, Text()>("Description"),
};

using OfRecordset = Members<Recordset>;
constexpr Member kRecordset[] = {
    OfRecordset::ReadOnly<&RecordsetState, Long()>("State"),
    OfRecordset::Function<&Recordset::Open,
                          void(Text, Ref<Connection>, Optional<Long>, Optional<Long, 1>, Optional<Long, -1>)>(
        "Open", "Source", "ActiveConnection", "CursorType", "LockType", "Options"),
    OfRecordset::Function<&Recordset::Close, void()>("Close"),
    OfRecordset::ReadOnly<&IsAtEnd, Boolean()>("EOF"),
    OfRecordset::Function<&Recordset::MoveNext, void()>("MoveNext"),
    SideMember<Fields>("Fields"),
    OfRecordset::ReadOnly<&Recordset::RecordCount, Long()>("RecordCount"),
    OfRecordset::Function<&Recordset::AddNew, void()>("AddNew"),
    OfRecordset::Function<&Recordset::Update, void()>("Update"),
};

using OfFields = Members<Fields>;
constexpr Member kFields[] = {
    OfFields::ReadOnly<&Fields::Count, Long()>("Count"),
    ItemMember<Field>(&FieldItem),
    EnumeratorMember<Fields, Field>(),
};

using OfField = Members<Field>;
constexpr Member kField[] = {
    OfField::ReadOnly<&Field::Name, Text()>("Name"),
    OfField::Property<&Field::Value, &Field::SetValue, Value>("Value"),
    OfField::ReadOnly<&Field::ActualSize, Long()>("ActualSize"),
    OfField::Function<&Field::GetChunk, Value(Long)>("GetChunk", "Length"),
};

constexpr Class kConnectionClass = Reachable<Connection>(kConnection);
constexpr Class kErrorsClass = Reachable<Errors, Connection>(kErrors);
constexpr Class kErrorClass = Reachable<Error, Connection>(kError);
constexpr Class kRecordsetClass = Reachable<Recordset>(kRecordset);
constexpr Class kFieldsClass = Reachable<Fields, Recordset>(kFields);
constexpr Class kFieldClass = Reachable<Field, Recordset>(kField);

}  // namespace

const Class& DescriptionOf(Tag<Connection>) { return kConnectionClass; }
const Class& DescriptionOf(Tag<Errors>) { return kErrorsClass; }
const Class& DescriptionOf(Tag<Error>) { return kErrorClass; }
const Class& DescriptionOf(Tag<Recordset>) { return kRecordsetClass; }
const Class& DescriptionOf(Tag<Fields>) { return kFieldsClass; }
const Class& DescriptionOf(Tag<Field>) { return kFieldClass; }

}  // namespace zef::component
