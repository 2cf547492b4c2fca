#pragma once

#include <cstdint>

/// What the dialect's expressions give, on every engine.
namespace zef::test {

struct FunctionResult {
  const char* expression;
  const char* value;  ///< as a text, "Null" for Null
};

inline constexpr FunctionResult kTextResults[] = {{"InStr('abcB','b')", "2"},
                                                  {"InStr(3,'abcB','b')", "4"},
                                                  {"InStr('abc','x')", "0"},
                                                  {"InStr('abc','')", "1"},
                                                  {"InStr('','')", "0"},
                                                  {"InStr('','a')", "0"},
                                                  {"InStr(2,'abc','')", "2"},
                                                  {"InStr(4,'abc','')", "0"},
                                                  {"InStr(Null,'a')", "Null"},
                                                  {"Left('äbc',2)", "äb"},
                                                  {"Left('abc',9)", "abc"},
                                                  {"Left(Null,1)", "Null"},
                                                  {"Left(1234,2)", "12"},
                                                  {"Right('abc',2)", "bc"},
                                                  {"Right('abc',0)", ""},
                                                  {"Mid('abcd',2)", "bcd"},
                                                  {"Mid('abcd',2,2)", "bc"},
                                                  {"Mid('abcd',9)", ""},
                                                  {"Mid('abcd',2,Null)", "Null"},
                                                  {"Len('äb')", "2"},
                                                  {"Len('')", "0"},
                                                  {"Len(1234)", "4"},
                                                  {"Len(Null)", "Null"},
                                                  {"Trim('  a b ')", "a b"},
                                                  {"LTrim('  a ')", "a "},
                                                  {"RTrim('  a ')", "  a"},
                                                  {"RTrim('   ')", ""},
                                                  {"LTrim('   ')", ""},
                                                  {"UCase('aä')", "AÄ"},
                                                  {"LCase('AÄ')", "aä"},
                                                  {"Trim(Null)", "Null"},
                                                  {"UCase(Null)", "Null"}};

inline constexpr FunctionResult kJoinedResults[] = {
    {"'a' & 'b'", "ab"},        {"'a' & Null", "a"},      {"Null & Null", ""},
    {"'a' & 1 & 1.5", "a11.5"}, {"'a' & (1=1)", "aTrue"}, {"'on ' & #5/1/2024 9:00:00 AM#", "on 5/1/2024 9:00:00 AM"},
    {"'a'+'b'", "ab"},          {"'a'+Null", "Null"}};

inline constexpr FunctionResult kDateResults[] = {{"Year('5/1/2024')", "2024"},
                                                  {"Month(#5/1/2024#)", "5"},
                                                  {"Day(45413)", "1"},
                                                  {"Year(Null)", "Null"},
                                                  {"Hour(#5/1/2024 9:10:11 PM#)", "21"},
                                                  {"Minute(#5/1/2024 9:10:11 PM#)", "10"},
                                                  {"Second(#5/1/2024 9:10:11 PM#)", "11"},
                                                  {"Hour(-1.25)", "6"},
                                                  {"Weekday(#5/1/2024#)", "4"},
                                                  {"Weekday(#5/1/2024#,2)", "3"},
                                                  {"Weekday(#5/1/2024#,5)", "7"},
                                                  {"Weekday(Null)", "Null"},
                                                  {"DateAdd('m',1,#1/31/2024#)", "2/29/2024"},
                                                  {"DateAdd('d',1,'5/1/2024')", "5/2/2024"},
                                                  {"DateAdd('d',Null,'5/1/2024')", "Null"},
                                                  {"DateDiff('d',#5/1/2024#,#5/3/2024#)", "2"},
                                                  {"DatePart('q',#5/1/2024#)", "2"},
                                                  {"DateSerial(2023,2,30)", "3/2/2023"},
                                                  {"DateSerial(2023,Null,30)", "Null"},
                                                  {"TimeSerial(9,90,0)", "10:30:00 AM"},
                                                  {"TimeSerial(0,0,-1)", "12/29/1899 11:59:59 PM"},
                                                  {"TimeSerial(24,0,0)", "12/31/1899"},
                                                  {"DateValue('5/1/2024 9:00:00 AM')", "5/1/2024"},
                                                  {"TimeValue('5/1/2024 9:00:00 AM')", "9:00:00 AM"},
                                                  {"DateValue(Null)", "Null"},
                                                  {"CDate('2024-05-01')", "5/1/2024"},
                                                  {"CDate(2)", "1/1/1900"},
                                                  {"#5/1/2024#+1", "5/2/2024"},
                                                  {"#5/3/2024#-#5/1/2024#", "2"},
                                                  {"#5/3/2024#-1", "5/2/2024"},
                                                  {"#5/3/2024#-'5/1/2024'", "2"}};

inline constexpr FunctionResult kNumberResults[] = {{"Abs(-2)", "2"},
                                                    {"Abs(-2.5)", "2.5"},
                                                    {"Abs(Null)", "Null"},
                                                    {"Int(-2.5)", "-3"},
                                                    {"Fix(-2.5)", "-2"},
                                                    {"Int(7)", "7"},
                                                    {"Sgn(-2.5)", "-1"},
                                                    {"Sgn(0)", "0"},
                                                    {"Round(2.5)", "2"},
                                                    {"Round(3.5)", "4"},
                                                    {"Round(2.345,1)", "2.3"},
                                                    {"Round(7,1)", "7"},
                                                    {"Round(Null)", "Null"},
                                                    {"5/2", "2.5"},
                                                    {"5/Null", "Null"},
                                                    {"7\\2", "3"},
                                                    {"2.5\\1", "2"},
                                                    {"-7 MOD 4", "-3"},
                                                    {"3.5 MOD 3", "1"},
                                                    {"2^10", "1024"},
                                                    {"2147483647+1", "2147483648"},
                                                    {"'5'+3", "8"},
                                                    {"'10'/4", "2.5"},
                                                    {"-'3'", "-3"},
                                                    {"(1=1)+1", "0"},
                                                    {"1E-999", "0"},
                                                    {"1-1E-999", "1"},
                                                    {"0.5E-400+1", "1"},
                                                    {"True+1", "0"}};

/// -1.25 is 29 December 1899, 06:00, and -1.75 is 18:00 of that day.
inline constexpr FunctionResult kEarlyDateResults[] = {{"CDate(-1.25)+0.5", "12/29/1899 6:00:00 PM"},
                                                       {"0.5+CDate(-1.25)", "12/29/1899 6:00:00 PM"},
                                                       {"CDate(-1.75)-0.5", "12/29/1899 6:00:00 AM"},
                                                       {"CDate(-1.25)+1.25", "12:00:00 PM"},
                                                       {"CDate(-1.25)+2", "12/31/1899 6:00:00 AM"},
                                                       {"CDate(1.25)-2", "12/29/1899 6:00:00 AM"},
                                                       {"CDate(-1.75)-CDate(-1.25)", "0.5"},
                                                       {"CDate(0.25)-CDate(-1.25)", "1"},
                                                       {"#5/1/2024 6:00:00 AM#+1", "5/2/2024 6:00:00 AM"},
                                                       {"#5/2/2024#-#5/1/2024#", "1"},
                                                       {"CDate(Null)+1", "Null"},
                                                       {"DateDiff('h',CDate(-1.25),CDate(-1.75))", "12"},
                                                       {"DateAdd('h',12,CDate(-1.25))", "12/29/1899 6:00:00 PM"},
                                                       {"DatePart('h',CDate(-1.75))", "18"}};

inline constexpr FunctionResult kConvertedResults[] = {
    {"CStr(1.5)", "1.5"},    {"CStr(1=1)", "True"},  {"CStr(#5/1/2024#)", "5/1/2024"}, {"CStr(Null)", "Null"},
    {"CLng('2.5')", "2"},    {"CLng(1=1)", "-1"},    {"CLng(Null)", "Null"},           {"CInt(3.5)", "4"},
    {"CByte('255')", "255"}, {"CDbl('1.5')", "1.5"}, {"CBool('True')", "True"},        {"CBool(0)", "False"},
    {"CBool(Null)", "Null"}};

inline constexpr FunctionResult kChosenResults[] = {
    {"IIf(1=1,'a','b')", "a"}, {"IIf(Null,'a','b')", "b"}, {"IIf(1=0,1/0,2)", "2"}, {"IIf(1=1,5,'x') & ''", "5"},
    {"Nz(Null,'x')", "x"},     {"Nz(5,'x')", "5"},         {"Nz(Null)", ""},        {"Nz(CLng(Null))", "0"},
    {"IsNull(Null)", "True"},  {"IsNull('')", "False"}};

struct FunctionFailure {
  const char* expression;
  std::int32_t number;
};

inline constexpr FunctionFailure kFunctionFailures[] = {{"1/0", 11},
                                                        {"1\\0", 11},
                                                        {"1\\0.4", 11},
                                                        {"1 MOD 0", 11},
                                                        {"0^-1", 5},
                                                        {"(-8)^0.5", 5},
                                                        {"1E300^2", 6},
                                                        {"1E300/1E-300", 6},
                                                        {"Left('a',-1)", 5},
                                                        {"Right('a',-1)", 5},
                                                        {"Mid('a',0)", 5},
                                                        {"Mid('a',1,-1)", 5},
                                                        {"InStr(0,'a','a')", 5},
                                                        {"Left('a','x')", -2147217913},
                                                        {"CLng('x')", -2147217913},
                                                        {"CLng(3E9)", 6},
                                                        {"CInt(32768)", 6},
                                                        {"CByte(256)", 6},
                                                        {"CDbl('x')", -2147217913},
                                                        {"CBool('x')", -2147217913},
                                                        {"CDate('x')", -2147217913},
                                                        {"Year('x')", -2147217913},
                                                        {"Year('x' & '')", -2147217913},
                                                        {"Year(1E8)", 6},
                                                        {"Weekday(1,8)", 5},
                                                        {"Weekday(1,-1)", 5},
                                                        {"DateAdd('x',1,1)", 5},
                                                        {"DateDiff('x',1,1)", 5},
                                                        {"DatePart('x',1)", 5},
                                                        {"DateSerial(2024,40000,1)", 6},
                                                        {"DateSerial(10000,1,1)", 5},
                                                        {"TimeSerial(40000,0,0)", 6},
                                                        {"Round(1.5,-1)", 5},
                                                        {"Abs('x' & '')", -2147217913}};

}  // namespace zef::test
