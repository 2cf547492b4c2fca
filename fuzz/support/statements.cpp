#include "fuzz/support/statements.h"

namespace zef::fuzz {
namespace {

constexpr const char* kTables[] = {"Folders", "Events", "Seen", "events", "[Folders]", "Nowhere"};
constexpr const char* kColumns[] = {
    "FLD_ID",   "FLD_ParentID", "FLD_Name", "FLD_Note", "FLD_Type", "FLD_Open", "EVE_ID",   "EVE_FolderID",
    "EVE_Text", "EVE_Start",    "EVE_Cost", "EVE_Rank", "EVE_Data", "SEE_User", "SEE_Date", "Folders.FLD_ID",
    "a.EVE_ID", "b.SEE_User",   "[EVE_ID]", "n",        "d.n",      "Missing"};
constexpr const char* kLiterals[] = {"0",    "1",          "-1",         "2147483648", "1E300", ".5",
                                     "'a'",  "''",         "'O''x'",     "\"q\"",      "'Ä'",   "Null",
                                     "True", "#5/1/2024#", "'5/1/2024'", "'[a-'",      "'%'",   "Now()",
                                     "'12'", "Date()",     "'d'",        "'ww'",       "?",     "#12:30#"};
constexpr const char* kCalls1[] = {"Len",  "Trim", "UCase", "LCase",  "Year",      "Month",     "Hour", "CStr", "CLng",
                                   "CInt", "CDbl", "CByte", "CBool",  "CDate",     "DateValue", "Abs",  "Int",  "Fix",
                                   "Sgn",  "Nz",   "LTrim", "IsNull", "TimeValue", "Weekday",   "Round"};
constexpr const char* kCalls2[] = {"InStr", "Left", "Right", "Mid", "DatePart", "Nz", "Round", "Weekday"};
constexpr const char* kCalls3[] = {"InStr", "Mid", "DateAdd", "DateDiff", "DateSerial", "TimeSerial", "IIf"};
constexpr const char* kAggregates[] = {"Count(*)", "Count(", "Sum(", "Avg(", "Min(", "Max(", "First("};
constexpr const char* kOperators[] = {" + ", " - ", " * ", " / ", " \\ ", " MOD ", " ^ ", " & "};
constexpr const char* kComparisons[] = {" = ", " <> ", " < ", " <= ", " > ", " >= ", " LIKE ", " NOT LIKE "};
constexpr const char* kJoiners[] = {" AND ", " OR ", " XOR "};
constexpr const char* kJoins[] = {" INNER JOIN ", " LEFT JOIN ", " RIGHT JOIN ", ", "};
constexpr const char* kStrays[] = {" SELECT ", " ( ", " ) ", ", ", " ORDER BY ", " GROUP BY ", " AS ",
                                   " ; ",      " . ", "'",   " [", " # ",        " NOT "};
constexpr int kDeepest = 4;

/// Writes one statement; `depth` counts what stands in each other.
class Writer {
 public:
  explicit Writer(test::Choices& choices) : choices_(choices) {}

  std::string Statement() {
    switch (choices_.Below(8)) {
      case 0: Insert(); break;
      case 1: Update(); break;
      case 2: Delete(); break;
      default: Select(0); break;
    }
    return std::move(text_);
  }

 private:
  void Add(const char* text) {
    if (choices_.OneIn(200)) text_ += choices_.Of(kStrays);
    text_ += text;
  }

  void Insert() {
    Add("INSERT INTO ");
    Add(choices_.Of(kTables));
    Add(" (");
    const std::size_t columns = 1 + choices_.Below(3);
    List(columns, [&] { Add(choices_.Of(kColumns)); });
    if (choices_.OneIn(3)) {
      Add(") ");
      return Select(1);
    }
    Add(") VALUES (");
    List(columns, [&] { Expression(2); });
    Add(")");
  }

  void Update() {
    Add("UPDATE ");
    From(2);
    Add(" SET ");
    List(1 + choices_.Below(2), [&] {
      Add(choices_.Of(kColumns));
      Add(" = ");
      Expression(2);
    });
    Where(2);
  }

  void Delete() {
    Add(choices_.OneIn(2) ? "DELETE FROM " : "DELETE Folders.* FROM ");
    From(2);
    Where(2);
  }

  void Select(int depth) {
    Add("SELECT ");
    if (choices_.OneIn(6)) Add("DISTINCT ");
    if (choices_.OneIn(6)) Add("TOP 2 ");
    List(1 + choices_.Below(3), [&] { Item(depth + 1); });
    if (!choices_.OneIn(12)) {
      Add(" FROM ");
      From(depth + 1);
    }
    Where(depth + 1);
    if (choices_.OneIn(5)) {
      Add(" GROUP BY ");
      List(1 + choices_.Below(2), [&] { Expression(3); });
      if (choices_.OneIn(2)) {
        Add(" HAVING ");
        Condition(3);
      }
    }
    if (depth < 2 && choices_.OneIn(8)) {
      Add(choices_.OneIn(2) ? " UNION " : " UNION ALL ");
      Select(depth + 1);
    }
    if (choices_.OneIn(4)) Order();
  }

  void Order() {
    Add(" ORDER BY ");
    List(1 + choices_.Below(2), [&] {
      Expression(3);
      if (choices_.OneIn(3)) Add(" DESC");
    });
  }

  void Item(int depth) {
    if (choices_.OneIn(8)) return Add(choices_.OneIn(2) ? "*" : "Events.*");
    Expression(depth);
    if (choices_.OneIn(3)) Add(choices_.OneIn(2) ? " AS n" : " AS EVE_ID");
  }

  void From(int depth) {
    Source(depth);
    for (std::size_t more = choices_.OneIn(3) ? 1 + choices_.Below(2) : 0; more > 0; --more) {
      const char* const join = choices_.Of(kJoins);
      Add(join);
      Source(depth);
      if (join[0] == ',') continue;
      Add(" ON ");
      Condition(depth + 1);
    }
  }

  void Source(int depth) {
    if (depth < kDeepest && choices_.OneIn(8)) {
      Add("(");
      Select(depth + 1);
      return Add(") AS d");
    }
    Add(choices_.Of(kTables));
    if (choices_.OneIn(3)) Add(choices_.OneIn(2) ? " AS a" : " b");
  }

  void Where(int depth) {
    if (!choices_.OneIn(2)) return;
    Add(" WHERE ");
    Condition(depth);
  }

  void Condition(int depth) {
    if (depth < kDeepest && choices_.OneIn(4)) {
      Condition(depth + 1);
      Add(choices_.Of(kJoiners));
      return Condition(depth + 1);
    }
    if (choices_.OneIn(8)) Add("NOT ");
    switch (choices_.Below(8)) {
      case 0: return Between(depth);
      case 1: return In(depth);
      case 2: return Exists(depth);
      case 3: Expression(depth + 1); return Add(choices_.OneIn(2) ? " IS NULL" : " IS NOT NULL");
      case 4: return Expression(depth + 1);
      default:
        Expression(depth + 1);
        Add(choices_.Of(kComparisons));
        return Expression(depth + 1);
    }
  }

  void Between(int depth) {
    Expression(depth + 1);
    Add(" BETWEEN ");
    Expression(depth + 1);
    Add(" AND ");
    Expression(depth + 1);
  }

  void In(int depth) {
    Expression(depth + 1);
    Add(choices_.OneIn(4) ? " NOT IN (" : " IN (");
    if (depth < kDeepest && choices_.OneIn(2)) {
      Select(depth + 1);
    } else {
      List(1 + choices_.Below(3), [&] { Expression(depth + 1); });
    }
    Add(")");
  }

  void Exists(int depth) {
    if (depth >= kDeepest) return Add("True");
    Add("EXISTS (");
    Select(depth + 1);
    Add(")");
  }

  void Expression(int depth) {
    const std::size_t kind = choices_.Below(depth < kDeepest ? 16 : 10);
    if (kind < 6) return Add(choices_.Of(kColumns));
    if (kind < 10) return Add(choices_.Of(kLiterals));
    if (kind < 12) {
      Expression(depth + 1);
      Add(choices_.Of(kOperators));
      return Expression(depth + 1);
    }
    if (kind == 12) return Aggregate(depth);
    if (kind == 13) return Bracketed(depth);
    Call(depth);
  }

  void Aggregate(int depth) {
    const std::string aggregate = choices_.Of(kAggregates);
    Add(aggregate.c_str());
    if (aggregate.ends_with(')')) return;
    Expression(depth + 1);
    Add(")");
  }

  void Bracketed(int depth) {
    if (choices_.OneIn(3)) Add("-");
    Add("(");
    if (choices_.OneIn(3)) {
      Select(depth + 1);
    } else {
      Condition(depth + 1);
    }
    Add(")");
  }

  void Call(int depth) {
    const std::size_t arguments = 1 + choices_.Below(3);
    Add(arguments == 1 ? choices_.Of(kCalls1) : arguments == 2 ? choices_.Of(kCalls2) : choices_.Of(kCalls3));
    Add("(");
    List(arguments, [&] { Expression(depth + 1); });
    Add(")");
  }

  template <class One>
  void List(std::size_t count, One one) {
    for (std::size_t i = 0; i < count; ++i) {
      if (i > 0) Add(", ");
      one();
    }
  }

  test::Choices& choices_;
  std::string text_;
};

}  // namespace

std::string DrawnStatement(test::Choices& choices) { return Writer(choices).Statement(); }

}  // namespace zef::fuzz
