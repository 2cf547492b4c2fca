#include <ZEFComponentsTypes.h>
#include <gtest/gtest.h>

#include <cmath>
#include <string>

#include "platform/windows/wide_text.h"
#include "tests/support/database.h"

namespace zef::test {
namespace {

/// A text that is freed with its variable.
class Text {
 public:
  Text() = default;
  explicit Text(const std::string& text) : held_(SysAllocString(ToWide(text).c_str())) {}
  ~Text() { SysFreeString(held_); }
  Text(const Text&) = delete;
  Text& operator=(const Text&) = delete;

  BSTR get() const { return held_; }
  BSTR* operator&() { return &held_; }
  std::string Utf8() const { return held_ == nullptr ? std::string() : FromWide({held_, SysStringLen(held_)}); }

 private:
  BSTR held_ = nullptr;
};

/// An interface that is given back with its variable.
template <class Interface>
class Held {
 public:
  Held() = default;
  ~Held() {
    if (held_ != nullptr) held_->Release();
  }
  Held(const Held&) = delete;
  Held& operator=(const Held&) = delete;

  Interface* operator->() const { return held_; }
  Interface* get() const { return held_; }
  Interface** operator&() { return &held_; }

 private:
  Interface* held_ = nullptr;
};

/// A client that was compiled against the type library, with a session on a new database.
class EarlyBinding : public testing::Test {
 protected:
  EarlyBinding() {
    Create(__uuidof(::CSession), &session);
    Text path(database.path());
    Text none("");
    VARIANT_BOOL connected = VARIANT_FALSE;
    session->Connect2Database(&path, &none, &none, &connected);
    session->SetAdministratorRights();
  }

  template <class Interface>
  void Create(REFCLSID identifier, Interface** made) {
    static const HMODULE library = LoadLibraryW(ToWide(ZEF_LIBRARY).c_str());
    using GetClassObject = HRESULT(REFCLSID, REFIID, void**);
    auto* const get =
        reinterpret_cast<GetClassObject*>(reinterpret_cast<void*>(GetProcAddress(library, "DllGetClassObject")));
    Held<IClassFactory> factory;
    ASSERT_EQ(get(identifier, IID_IClassFactory, reinterpret_cast<void**>(&factory)), S_OK);
    ASSERT_EQ(factory->CreateInstance(nullptr, __uuidof(Interface), reinterpret_cast<void**>(made)), S_OK);
  }

  Database database;
  Held<_CSession> session;
};

TEST_F(EarlyBinding, AnIntegerGoesInAndComesOut) {
  EXPECT_EQ(session->put_UserID(7), S_OK);
  LONG user = 0;
  EXPECT_EQ(session->get_UserID(&user), S_OK);
  EXPECT_EQ(user, 7);
}

TEST_F(EarlyBinding, ATextGoesInAndComesOut) {
  Held<_CFolder> folder;
  ASSERT_EQ(session->CreateFolder(&folder), S_OK);
  EXPECT_EQ(folder->put_Name(Text("Chöre").get()), S_OK);
  Text name;
  EXPECT_EQ(folder->get_Name(&name), S_OK);
  EXPECT_EQ(name.Utf8(), "Chöre");
}

TEST_F(EarlyBinding, ADateInARegisterGoesInAndComesOut) {
  Held<_CTask> task;
  ASSERT_EQ(session->CreateTask(&task), S_OK);
  EXPECT_EQ(task->put_DueDate(45413.375), S_OK);
  DATE due = 0;
  EXPECT_EQ(task->get_DueDate(&due), S_OK);
  EXPECT_EQ(due, 45413.375);
}

TEST_F(EarlyBinding, ABooleanGoesInAndComesOut) {
  Held<_CTask> task;
  Held<_CRecurrence> rule;
  ASSERT_EQ(session->CreateTask(&task), S_OK);
  ASSERT_EQ(task->get_Recurrence(&rule), S_OK);
  EXPECT_EQ(rule->put_Friday(VARIANT_TRUE), S_OK);
  VARIANT_BOOL friday = 0x55;
  EXPECT_EQ(rule->get_Friday(&friday), S_OK);
  EXPECT_EQ(friday, VARIANT_TRUE);
}

TEST_F(EarlyBinding, AVariableIsWritten) {
  LONG drawn = 0;
  LONG result = 0;
  EXPECT_EQ(session->GetUniqueIDFromSeq(2, &drawn, 1, &result), S_OK);
  EXPECT_EQ(result, 1);
  EXPECT_GT(drawn, 0);
}

TEST_F(EarlyBinding, AnObjectIsFilledAndItsElementsAreEarlyToo) {
  Held<_CFolders> folders;
  Create(__uuidof(::CFolders), &folders);
  VARIANT_BOOL loaded = VARIANT_FALSE;
  ASSERT_EQ(session->LoadRootFolders(&folders, &loaded), S_OK);
  LONG count = 0;
  EXPECT_EQ(folders->get_Count(&count), S_OK);
  EXPECT_EQ(count, 5);
  Held<_CFolder> third;
  ASSERT_EQ(folders->get_ItemByIdx(3, &third), S_OK);
  Text name;
  third->get_Name(&name);
  EXPECT_EQ(name.Utf8(), "Contacts");
}

TEST_F(EarlyBinding, ATableOfTextsIsHandedOver) {
  Held<_CNote> note;
  ASSERT_EQ(session->CreateNote(&note), S_OK);
  note->put_Title(Text("Choir").get());
  SAFEARRAY* rows = nullptr;
  LONG count = 0;
  VARIANT_BOOL given = VARIANT_FALSE;
  ASSERT_EQ(note->GetFieldsArray(FN_DATABASE, &rows, &count, &given), S_OK);
  ASSERT_EQ(SafeArrayGetDim(rows), 2u);
  LONG place[] = {0, 0};
  Text label;
  Text value;
  EXPECT_EQ(SafeArrayGetElement(rows, place, &label), S_OK);
  place[1] = 1;
  EXPECT_EQ(SafeArrayGetElement(rows, place, &value), S_OK);
  EXPECT_EQ(label.Utf8(), "NOT_Title");
  EXPECT_EQ(value.Utf8(), "'Choir'");
  SafeArrayDestroy(rows);
}

TEST_F(EarlyBinding, AVariantByValueComesByItsAddress) {
  Held<_Connection> connection;
  Held<_Recordset> rows;
  Held<_Fields> fields;
  Held<_Field> field;
  ASSERT_EQ(session->get_conDBConnection(&connection), S_OK);
  ASSERT_EQ(connection->Execute(Text("SELECT FLD_Name FROM Folders WHERE FLD_ID=3").get(), -1, &rows), S_OK);
  ASSERT_EQ(rows->get_Fields(&fields), S_OK);
  Text name("FLD_Name");
  VARIANT key{};
  key.vt = VT_BSTR;
  key.bstrVal = name.get();
  ASSERT_EQ(fields->get_Item(key, &field), S_OK);
  VARIANT value{};
  ASSERT_EQ(field->get_Value(&value), S_OK);
  ASSERT_EQ(value.vt, VT_BSTR);
  EXPECT_EQ(FromWide(value.bstrVal), "Tasks");
  VariantClear(&value);
}

TEST_F(EarlyBinding, TheLastMemberOfTheWidestInterfaceIsInItsPlace) {
  Text version;
  Text kind;
  VARIANT_BOOL told = VARIANT_FALSE;
  ASSERT_EQ(session->GetDBInfo(&version, &kind, &told), S_OK);
  EXPECT_EQ(version.Utf8(), "9.2.4");
  Text failure;
  EXPECT_EQ(session->UpgradeDBToVersion9_2_4(&version, &failure, &told), S_OK);
}

TEST_F(EarlyBinding, AFailureIsACodeAndAnErrorObject) {
  Held<_CFolders> folders;
  Create(__uuidof(::CFolders), &folders);
  Held<_CFolder> none;
  EXPECT_EQ(folders->get_ItemByIdx(4, &none), static_cast<HRESULT>(0x800A0009));
  Held<IErrorInfo> told;
  ASSERT_EQ(GetErrorInfo(0, &told), S_OK);
  Text source;
  Text description;
  told->GetSource(&source);
  told->GetDescription(&description);
  EXPECT_EQ(source.Utf8(), "ZEFComponents");
  EXPECT_EQ(description.Utf8(), "Subscript out of range");
}

TEST_F(EarlyBinding, AnObjectSaysThatItHasErrorObjects) {
  Held<ISupportErrorInfo> support;
  ASSERT_EQ(session->QueryInterface(IID_ISupportErrorInfo, reinterpret_cast<void**>(&support)), S_OK);
  EXPECT_EQ(support->InterfaceSupportsErrorInfo(__uuidof(_CSession)), S_OK);
  EXPECT_EQ(support->InterfaceSupportsErrorInfo(__uuidof(_CFolder)), S_FALSE);
  Held<IUnknown> through_it;
  Held<IUnknown> identity;
  support->QueryInterface(IID_IUnknown, reinterpret_cast<void**>(&through_it));
  session->QueryInterface(IID_IUnknown, reinterpret_cast<void**>(&identity));
  EXPECT_EQ(through_it.get(), identity.get());
}

TEST_F(EarlyBinding, AResultWithoutAPlaceIsRefused) { EXPECT_EQ(session->get_UserID(nullptr), E_POINTER); }

TEST_F(EarlyBinding, AnObjectDescribesItsType) {
  UINT count = 0;
  EXPECT_EQ(session->GetTypeInfoCount(&count), S_OK);
  EXPECT_EQ(count, 1u);
  Held<ITypeInfo> type;
  ASSERT_EQ(session->GetTypeInfo(0, LOCALE_NEUTRAL, &type), S_OK);
  TYPEATTR* attributes = nullptr;
  ASSERT_EQ(type->GetTypeAttr(&attributes), S_OK);
  EXPECT_TRUE(IsEqualGUID(attributes->guid, __uuidof(_CSession)));
  type->ReleaseTypeAttr(attributes);
}

}  // namespace
}  // namespace zef::test
