#pragma once

/// Statements over small tables and the rows that they give, on every engine.
namespace zef::test {

/// As literals; the folders are numbered from 1.
inline constexpr const char* kFolderNames[] = {"'apple'",  "'Apple'",  "'Éclair'",  "'éclair'",
                                               "'eclair'", "'straße'", "'strasse'", "'a' & Mid('xy',3)",
                                               "Null",     "'50%'",    "''"};

struct DialectSearch {
  const char* condition;
  const char* ids;
};

inline constexpr DialectSearch kNameSearches[] = {
    {"FLD_Name='APPLE'", "1; 2"},
    {"FLD_Name='éclair'", "3; 4"},
    {"FLD_Name='eclair'", "5"},
    {"FLD_Name='strasse'", "7"},
    {"FLD_Name='STRAßE'", "6"},
    {"FLD_Name=''", "11"},
    {"FLD_Name<>'apple'", "3; 4; 5; 6; 7; 8; 10; 11"},
    {"NOT FLD_Name='apple'", "3; 4; 5; 6; 7; 8; 10; 11"},
    {"FLD_Name IN ('APPLE','A')", "1; 2; 8"},
    {"FLD_Name IN ('ÉCLAIR','x')", "3; 4"},
    {"FLD_Name NOT IN ('apple','éclair')", "5; 6; 7; 8; 10; 11"},
    {"FLD_Name BETWEEN 'ECLAIR' AND 'ÉCLAIR'", "3; 4; 5"},
    {"FLD_Name<'apple'", "8; 10; 11"},
    {"FLD_Name LIKE 'É%'", "3; 4"},
    {"FLD_Name LIKE '_CLAIR'", "3; 4; 5"},
    {"FLD_Name LIKE '%[%]'", "10"},
    {"FLD_Name LIKE '[a-b]%'", "1; 2; 8"},
    {"FLD_Name LIKE '[!a-z]%'", "3; 4; 10"},
    {"FLD_Name NOT LIKE '%a%'", "10; 11"},
    {"FLD_Name IS NULL", "9"},
    {"IsNull(FLD_Name)", "9"},
    {"FLD_Name=Null", ""},
    {"FLD_ID='3'", "3"},
    {"FLD_ID=3.5", ""},
    {"'3'=FLD_ID", "3"},
    {"FLD_ID='3.5'", ""},
    {"FLD_ID<4 AND NOT FLD_ID='2.5'", "1; 2; 3"},
    {"FLD_ID IN ('3',4.0,'5.5')", "3; 4"},
    {"FLD_ID<4 AND FLD_ID NOT IN ('3','99999999999')", "1; 2"},
    {"FLD_ID='4294967299'", ""},
    {"FLD_ID<3000000000 AND FLD_ID>10.5", "11"},
    {"FLD_ID=1 XOR FLD_ID<3", "2"},
    {"FLD_Name & ''=''", "9; 11"},
    {"FLD_ID IN (SELECT FLD_ID FROM Folders WHERE FLD_Name='a')", "8"},
    {"FLD_Name IN (SELECT UCase(f.FLD_Name) FROM Folders f WHERE f.FLD_ID=1)", "1; 2"},
    {"EXISTS (SELECT * FROM Folders f WHERE f.FLD_Name=Folders.FLD_Name AND f.FLD_ID<>Folders.FLD_ID)", "1; 2; 3; 4"}};

struct DialectQuery {
  const char* name;
  const char* statement;
  const char* rows;
};

inline constexpr DialectQuery kQueries[] = {
    {"OrderIgnoresLetterCase", "SELECT FLD_ID FROM Folders WHERE FLD_ID IN (1,2,5,8) ORDER BY FLD_Name, FLD_ID",
     "8; 1; 2; 5"},
    {"GroupsIgnoreLetterCase", "SELECT Count(*) FROM Folders WHERE FLD_ID<5 GROUP BY FLD_Name", "2; 2"},
    {"DistinctIgnoresLetterCase", "SELECT Count(*) FROM (SELECT DISTINCT FLD_Name FROM Folders WHERE FLD_ID<5) AS d",
     "2"},
    {"CountOfDistinctIgnoresLetterCase", "SELECT Count(DISTINCT FLD_Name) FROM Folders WHERE FLD_ID<5", "2"},
    {"UnionIgnoresLetterCase",
     "SELECT Count(*) FROM (SELECT FLD_Name FROM Folders WHERE FLD_ID=1 UNION SELECT FLD_Name FROM Folders "
     "WHERE FLD_ID=2) AS u",
     "1"},
    {"UnionIsSortedByTheCollation",
     "SELECT FLD_Name FROM Folders WHERE FLD_ID=5 UNION ALL SELECT FLD_Name FROM Folders WHERE FLD_ID=2 ORDER "
     "BY FLD_Name",
     "Apple; eclair"},
    {"LargestTextFollowsTheCollation", "SELECT Max(FLD_Name) FROM Folders WHERE FLD_ID IN (2,8)", "Apple"},
    {"TopGivesExactlySoManyRows", "SELECT TOP 2 FLD_ID FROM Folders ORDER BY FLD_ID DESC", "11; 10"},
    {"TopOfAUnionPartLimitsThatPartOnly",
     "SELECT TOP 1 1 FROM Folders UNION ALL SELECT FLD_ID FROM Folders WHERE FLD_ID<4", "1; 1; 2; 3"},
    {"OrderByPositionSortsByTheResultColumn", "SELECT FLD_ID, -FLD_ID FROM Folders WHERE FLD_ID<3 ORDER BY 2",
     "2, -2; 1, -1"},
    {"ConditionsAreSortedTrueFirst", "SELECT FLD_ID FROM Folders WHERE FLD_ID<4 ORDER BY FLD_ID=3, FLD_ID", "3; 1; 2"}};

/// A statement, if any, and a select with the rows that it must give then.
struct DialectChange {
  const char* name;
  const char* statement;
  const char* select;
  const char* rows;
};

inline constexpr DialectChange kJoinedChanges[] = {
    {"UpdateOverAListOfTablesTakesValuesOfTheOther",
     "UPDATE EVENTS,Folders SET EVE_TEXT =Folders.FLD_Name WHERE Folders.FLD_ID = Events.EVE_FolderID",
     "SELECT EVE_ID, EVE_Text FROM Events ORDER BY EVE_ID", "10, one; 11, one; 12, two; 13, Null"},
    {"UpdateOverALeftJoinReachesRowsWithoutPartner",
     "UPDATE Events AS e LEFT JOIN Folders AS f ON e.EVE_FolderID=f.FLD_ID SET e.EVE_Text='none' WHERE "
     "f.FLD_ID IS NULL",
     "SELECT EVE_ID FROM Events WHERE EVE_Text='none'", "13"},
    {"UpdateOfTheRightTableOfAJoinWorks",
     "UPDATE Folders INNER JOIN Events ON FLD_ID=EVE_FolderID SET EVE_Rank=FLD_Type, EVE_Cost=1.5",
     "SELECT EVE_Rank, EVE_Cost FROM Events ORDER BY EVE_ID", "7, 1.5; 7, 1.5; 8, 1.5; Null, Null"},
    {"UpdateInsideABracketedJoinWorks",
     "UPDATE Seen RIGHT JOIN (Folders INNER JOIN Events ON FLD_ID=EVE_FolderID) ON SEE_User=FLD_ID SET "
     "EVE_Rank=3",
     "SELECT Count(*) FROM Events WHERE EVE_Rank=3", "3"},
    {"UpdateWithCorrelatedSelectWorks",
     "UPDATE Folders SET FLD_Note=(SELECT Max(EVE_Start) FROM Events WHERE EVE_FolderID=FLD_ID)",
     "SELECT FLD_Note FROM Folders", "5/2/2024; 5/3/2024"},
    {"DeleteOverAJoinTakesTheNamedTable",
     "DELETE Events.* FROM Events INNER JOIN Folders ON EVE_FolderID=FLD_ID WHERE FLD_Name='ONE'",
     "SELECT EVE_ID FROM Events", "12; 13"},
    {"DeleteOverAJoinLeavesTheOtherTable", "DELETE Events.* FROM Events INNER JOIN Folders ON EVE_FolderID=FLD_ID",
     "SELECT FLD_ID FROM Folders", "1; 2"},
    {"DeleteWithAliasWorks", "DELETE e.* FROM Events AS e WHERE e.EVE_ID<13", "SELECT EVE_ID FROM Events", "13"},
    {"InsertFromSelectConverts",
     "INSERT INTO Seen (SEE_Date, SEE_User) SELECT EVE_Start, EVE_ID & '' FROM Events WHERE "
     "EVE_Start>'5/2/2024'",
     "SELECT * FROM Seen", "12, 5/3/2024; 13, 5/4/2024"},
    {"RightJoinKeepsRowsOfTheRightSide", "",
     "SELECT EVE_ID FROM Folders RIGHT JOIN Events ON FLD_ID=EVE_FolderID WHERE FLD_ID IS NULL", "13"},
    {"DatesAreComparedAsDates", "", "SELECT EVE_ID FROM Events WHERE EVE_Start BETWEEN '5/2/2024' AND #5/3/2024#",
     "11; 12"},
    {"GroupByCalculatedDatePartWorks", "",
     "SELECT Month(EVE_Start), Count(*), Min(EVE_Start) FROM Events GROUP BY Month(EVE_Start)", "5, 4, 5/1/2024"},
    {"DerivedTablesCanBeJoined", "",
     "SELECT f.FLD_Name, d.n FROM Folders AS f INNER JOIN (SELECT EVE_FolderID, Count(*) AS n FROM Events "
     "GROUP BY EVE_FolderID) AS d ON f.FLD_ID=d.EVE_FolderID ORDER BY d.n DESC",
     "one, 2; two, 1"}};

}  // namespace zef::test
