#pragma once

#include <cstddef>

namespace zef::sql {

/// What one statement or table may hold on every engine.
constexpr std::size_t kMostSources = 64;    ///< tables and selects of one FROM
constexpr std::size_t kMostColumns = 2000;  ///< of a table, a result, a GROUP BY or an ORDER BY
constexpr std::size_t kMostUnited = 500;    ///< selects of one UNION

}  // namespace zef::sql
