#include <gtest/gtest.h>

#include <cstddef>
#include <cstring>
#include <string>
#include <vector>

#include "tests/component/library.h"

namespace zef::test {
namespace {

using Block = std::vector<unsigned char>;

Block BytesAt(const void* at, std::size_t size) {
  Block bytes(size);
  std::memcpy(bytes.data(), at, size);
  return bytes;
}

/// Sizes and places as an author of another binding reads them.
TEST(Layout, OfAVariant) {
  EXPECT_EQ(sizeof(VARIANT), 24u);
  EXPECT_EQ(offsetof(VARIANT, vt), 0u);
  EXPECT_EQ(offsetof(VARIANT, llVal), 8u);
}
TEST(Layout, OfCallParameters) {
  EXPECT_EQ(sizeof(DISPPARAMS), 24u);
  EXPECT_EQ(offsetof(DISPPARAMS, rgvarg), 0u);
  EXPECT_EQ(offsetof(DISPPARAMS, rgdispidNamedArgs), 8u);
  EXPECT_EQ(offsetof(DISPPARAMS, cArgs), 16u);
  EXPECT_EQ(offsetof(DISPPARAMS, cNamedArgs), 20u);
}
TEST(Layout, OfAFailure) {
  EXPECT_EQ(sizeof(EXCEPINFO), 64u);
  EXPECT_EQ(offsetof(EXCEPINFO, bstrSource), 8u);
  EXPECT_EQ(offsetof(EXCEPINFO, bstrDescription), 16u);
  EXPECT_EQ(offsetof(EXCEPINFO, bstrHelpFile), 24u);
  EXPECT_EQ(offsetof(EXCEPINFO, scode), 56u);
}
TEST(Layout, OfAnArray) {
  EXPECT_EQ(offsetof(SAFEARRAY, cDims), 0u);
  EXPECT_EQ(offsetof(SAFEARRAY, fFeatures), 2u);
  EXPECT_EQ(offsetof(SAFEARRAY, cbElements), 4u);
  EXPECT_EQ(offsetof(SAFEARRAY, cLocks), 8u);
  EXPECT_EQ(offsetof(SAFEARRAY, pvData), 16u);
  EXPECT_EQ(offsetof(SAFEARRAY, rgsabound), 24u);
  EXPECT_EQ(sizeof(SAFEARRAYBOUND), 8u);
}
TEST(Layout, OfNumbersIsThatOf32Bits) {
  EXPECT_EQ(sizeof(LONG), 4u);
  EXPECT_EQ(sizeof(ULONG), 4u);
  EXPECT_EQ(sizeof(HRESULT), 4u);
  EXPECT_EQ(sizeof(DISPID), 4u);
  EXPECT_EQ(sizeof(VARIANT_BOOL), 2u);
  EXPECT_EQ(sizeof(OLECHAR), 2u);
}
TEST(Layout, OfAnIdentifier) {
  EXPECT_EQ(BytesAt(&IID_IDispatch, 16), (Block{0, 4, 2, 0, 0, 0, 0, 0, 0xC0, 0, 0, 0, 0, 0, 0, 0x46}));
}

/// The call of an entry of an interface's table as plain C makes it.
TEST(Layout, OfAnInterfaceIsItsTableInOrder) {
  const Object tag = Library::Shared().Create("CTag");
  using AddRef = ULONG (*)(void*);
  void** const table = *reinterpret_cast<void***>(tag.get());
  EXPECT_EQ(reinterpret_cast<AddRef>(table[1])(tag.get()), 2u);
  EXPECT_EQ(reinterpret_cast<AddRef>(table[2])(tag.get()), 1u);
  using GetTypeInfoCount = HRESULT (*)(void*, UINT*);
  UINT count = 7;
  EXPECT_EQ(reinterpret_cast<GetTypeInfoCount>(table[3])(tag.get(), &count), S_OK);
  EXPECT_EQ(count, 0u);
}

class TextLayout : public ComponentTest {
 protected:
  Variant Text(std::u16string_view units) {
    const Object tag = Create("CTag");
    tag.Put("Text", units);
    return std::move(tag.Get("Text").value);
  }
};

TEST_F(TextLayout, HasItsLengthInFrontAndAZeroBehind) {
  const Variant text = Text(u"A\u0105");
  const auto* const units = reinterpret_cast<const char*>(text.raw().bstrVal);
  EXPECT_EQ(BytesAt(units - 4, 10), (Block{4, 0, 0, 0, 'A', 0, 0x05, 0x01, 0, 0}));
}
TEST_F(TextLayout, IsABlockOfMallocFrom8BytesBefore) {
  Variant text = Text(u"freed by hand");
  std::free(reinterpret_cast<char*>(text.raw().bstrVal) - 8);
  VariantInit(&text.raw());
}
TEST_F(TextLayout, IsReadFromABlockOfTheClientsOwn) {
  auto* const block = static_cast<char*>(std::malloc(8 + 4 + 2));
  std::memcpy(block, "....\x04\0\0\0H\0i\0\0\0", 14);
  const Object tag = Create("CTag");
  tag.Put("Text", Variant::Of(VT_BSTR, reinterpret_cast<BSTR>(block + 8)));
  EXPECT_EQ(tag.Get("Text").value.text(), "Hi");
}
TEST_F(TextLayout, OfTheEmptyTextHasNoLength) { EXPECT_EQ(SysStringByteLen(Text(u"").raw().bstrVal), 0u); }

/// Texts on their way in and out again.
class TextCrossing : public TextLayout {
 protected:
  std::u16string Through(std::u16string_view units) { return Text(units).units(); }
};

TEST_F(TextCrossing, KeepsZeroCharacters) {
  const std::u16string units(u"a\0b\0", 4);
  EXPECT_EQ(Through(units), units);
}
TEST_F(TextCrossing, KeepsCharactersOfTwoUnits) { EXPECT_EQ(Through(u"\xD83D\xDE00!"), u"\xD83D\xDE00!"); }
TEST_F(TextCrossing, KeepsTheLastCharacter) { EXPECT_EQ(Through(u"\xDBFF\xDFFF"), u"\xDBFF\xDFFF"); }
TEST_F(TextCrossing, KeepsAllOtherUnits) {
  std::u16string units;
  for (char32_t unit = 0; unit < 0x10000; ++unit) {
    if (unit < 0xD800 || unit > 0xDFFF) units += static_cast<char16_t>(unit);
  }
  EXPECT_TRUE(Through(units) == units);
}
TEST_F(TextCrossing, ReplacesALoneFirstHalf) { EXPECT_EQ(Through(u"a\xD83D"), u"a\xFFFD"); }
TEST_F(TextCrossing, ReplacesALoneSecondHalf) { EXPECT_EQ(Through(u"\xDE00z"), u"\xFFFDz"); }
TEST_F(TextCrossing, ReplacesHalvesInTheWrongOrder) { EXPECT_EQ(Through(u"\xDE00\xD83D"), u"\xFFFD\xFFFD"); }
TEST_F(TextCrossing, KeepsTheCharacterBehindALoneHalf) {
  EXPECT_EQ(Through(u"\xD83D\xD83D\xDE00"), u"\xFFFD\xD83D\xDE00");
}
TEST_F(TextCrossing, KeepsTheEmptyText) { EXPECT_EQ(Through(u""), u""); }
TEST_F(TextCrossing, KeepsALongText) {
  const std::u16string units(1 << 20, u'\u0105');
  EXPECT_TRUE(Through(units) == units);
}
TEST_F(TextCrossing, DropsHalfAUnitAtTheEnd) {
  auto* const block = static_cast<char*>(std::malloc(8 + 3 + 2));
  std::memcpy(block, "....\x03\0\0\0H\0i\0\0", 13);
  const Object tag = Create("CTag");
  tag.Put("Text", Variant::Of(VT_BSTR, reinterpret_cast<BSTR>(block + 8)));
  EXPECT_EQ(tag.Get("Text").value.text(), "H");
}

/// The table that `GetFieldsArray` gives.
class TableLayout : public ComponentTest {
 protected:
  TableLayout() {
    note.Put("Title", "Choir");
    EXPECT_TRUE(note.Call("GetFieldsArray", 1, Variant::Ref(rows), Variant::Ref(VT_I4, &count)).value.truth());
  }

  const SAFEARRAY& array() const { return *rows.raw().parray; }
  std::u16string Cell(ULONG row, ULONG column) const {
    const BSTR cell = static_cast<const BSTR*>(array().pvData)[column * array().rgsabound[1].cElements + row];
    return cell == nullptr ? std::u16string() : std::u16string(cell, SysStringLen(cell));
  }

  const Object note = Create("CNote");
  Variant rows;
  std::int32_t count = 0;
};

TEST_F(TableLayout, HasTwoDimensions) { EXPECT_EQ(array().cDims, 2); }
TEST_F(TableLayout, HasItsLastDimensionFirst) {
  EXPECT_EQ(array().rgsabound[0].cElements, 11u);  // columns 0 to 10
  EXPECT_EQ(array().rgsabound[1].cElements, 11u);  // rows 0 to 10
}
TEST_F(TableLayout, CountsFromZero) {
  EXPECT_EQ(array().rgsabound[0].lLbound, 0);
  EXPECT_EQ(array().rgsabound[1].lLbound, 0);
}
TEST_F(TableLayout, HoldsTexts) {
  EXPECT_EQ(array().fFeatures & 0x0100, 0x0100);
  EXPECT_EQ(array().cbElements, sizeof(BSTR));
}
TEST_F(TableLayout, IsNotLocked) { EXPECT_EQ(array().cLocks, 0u); }
TEST_F(TableLayout, TellsTheNumberOfRowsOfItsClass) { EXPECT_EQ(count, 10); }
TEST_F(TableLayout, KeepsNameAndValueOfARowAColumnApart) {
  EXPECT_EQ(Cell(0, 0), u"NOT_Title");
  EXPECT_EQ(Cell(0, 1), u"'Choir'");
}
TEST_F(TableLayout, KeepsTheRowsOfAColumnTogether) {
  const BSTR second = static_cast<const BSTR*>(array().pvData)[1];
  EXPECT_EQ(std::u16string(second), Cell(1, 0));
  EXPECT_EQ(Cell(1, 0), u"NOT_Text");
}
TEST_F(TableLayout, IsBlocksOfMalloc) {
  SAFEARRAY* const freed = rows.raw().parray;
  VariantInit(&rows.raw());
  auto* const cells = static_cast<BSTR*>(freed->pvData);
  for (std::size_t i = 0; i < 11 * 11; ++i) {
    if (cells[i] != nullptr) std::free(reinterpret_cast<char*>(cells[i]) - 8);
  }
  std::free(freed->pvData);
  std::free(freed);
}
TEST_F(TableLayout, OfARecordOfManyRowsIsTall) {
  Variant table;
  Create("CContact").Call("GetFieldsArray", 1, Variant::Ref(table), Variant::Ref(VT_I4, &count));
  EXPECT_EQ(table.raw().parray->rgsabound[0].cElements, 3u);
  EXPECT_EQ(table.raw().parray->rgsabound[1].cElements, 51u);
}

}  // namespace
}  // namespace zef::test
