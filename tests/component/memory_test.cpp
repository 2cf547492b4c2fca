#include <gtest/gtest.h>
#include <malloc.h>
#include <sys/resource.h>
#include <unistd.h>

#include <fstream>
#include <string>

#include "tests/component/library.h"
#include "tests/support/process.h"

namespace zef::test {
namespace {

/// Lets this process have so many bytes more, and no others.
void LimitMemory(std::size_t more) {
  std::size_t pages = 0;
  std::ifstream("/proc/self/statm") >> pages;
  const rlim_t limit = pages * static_cast<std::size_t>(sysconf(_SC_PAGESIZE)) + more;
  const rlimit limits{limit, limit};
  setrlimit(RLIMIT_AS, &limits);
}

constexpr std::size_t kMegabyte = 1 << 20;
/// Long enough that the limit stands between it and a second one.
constexpr UINT kUnits = 64 * kMegabyte;
constexpr std::size_t kLittle = 32 * kMegabyte;
/// Enough for the fields of a record with such a text, but not for its UTF-16 in a table.
constexpr std::size_t kWithoutItsText = 150 * kMegabyte;

/// Calls for which there is no memory, each in a process of its own.
class Memory : public testing::Test {
 protected:
  void SetUp() override {
#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
    GTEST_SKIP() << "the sanitizer takes all addresses for itself";
#endif
  }

  static Variant LongText() {
    BSTR const text = SysAllocStringLen(nullptr, kUnits);
    for (UINT i = 0; i < kUnits; ++i) text[i] = u'x';
    return Variant::Of(VT_BSTR, text);
  }
  /// Asks for a record's table of texts ten times and drops what comes; the last result.
  static HRESULT TableTenTimes(const Object& record) {
    HRESULT result = S_OK;
    for (int i = 0; i < 10; ++i) {
      Variant table;
      std::int32_t count = 0;
      result = record.Call("GetFieldsArray", 1, Variant::Ref(table), Variant::Ref(VT_I4, &count)).result;
    }
    return result;
  }
  template <class Work>
  static std::string InAProcess(Work&& work) {
    Process process(work);
    return process.Result();
  }
  static std::string ResultText(HRESULT result) {
    return result == E_OUTOFMEMORY ? "out of memory" : std::to_string(result);
  }
};

TEST_F(Memory, ThatIsShortRefusesAnArgument) {
  EXPECT_EQ(InAProcess([] {
              const Object tag = Library::Shared().Create("CTag");
              Variant text = LongText();
              LimitMemory(kLittle);
              return ResultText(tag.Put("Text", std::move(text)).result);
            }),
            "out of memory");
}
TEST_F(Memory, ThatIsShortLeavesThePropertyAsItWas) {
  EXPECT_EQ(InAProcess([] {
              const Object tag = Library::Shared().Create("CTag");
              tag.Put("Text", "before");
              Variant text = LongText();
              LimitMemory(kLittle);
              tag.Put("Text", std::move(text));
              return tag.Get("Text").value.text();
            }),
            "before");
}
TEST_F(Memory, ThatIsShortRefusesAResult) {
  EXPECT_EQ(InAProcess([] {
              const Object tag = Library::Shared().Create("CTag");
              tag.Put("Text", LongText());
              LimitMemory(kLittle);
              const Outcome outcome = tag.Get("Text");
              return outcome.value.kind() == VT_EMPTY ? ResultText(outcome.result) : "a result";
            }),
            "out of memory");
}
TEST_F(Memory, ThatIsShortLeavesNoTableBehind) {
  EXPECT_EQ(InAProcess([] {
              const Object note = Library::Shared().Create("CNote");
              note.Put("Text", LongText());
              LimitMemory(kWithoutItsText);
              TableTenTimes(note);  // fills what the allocator keeps for itself
              const std::size_t before = mallinfo2().uordblks;
              const HRESULT result = TableTenTimes(note);
              return ResultText(result) + ", " + std::to_string(mallinfo2().uordblks - before);
            }),
            "out of memory, 0");
}

}  // namespace
}  // namespace zef::test
