#include "platform/sql/scope.h"

#include <algorithm>
#include <utility>

#include "platform/sql/limits.h"
#include "platform/sql/statement_error.h"
#include "platform/text.h"

namespace zef::sql {
namespace {

bool MayMean(const Expr& reference, const ScopeSource& source) {
  return reference.qualifier.empty() || text::EqualNames(reference.qualifier, source.name);
}

std::string Written(const Expr& reference) {
  return reference.qualifier.empty() ? reference.name : reference.qualifier + "." + reference.name;
}

[[noreturn]] void RaiseAmbiguous(const Expr& reference) {
  RaiseAt(FailureNumber::NoSuchColumn,
          "The column '" + Written(reference) + "' is ambiguous: more than one source has it", reference.place);
}

}  // namespace

ScopeSource& Scope::Add(ScopeSource source, std::size_t place) {
  if (!source.name.empty() && FindSource(source.name) != nullptr) {
    RaiseAt(FailureNumber::StatementError, "The source '" + source.name + "' stands twice in FROM; one needs an alias",
            place);
  }
  if (sources_.size() == kMostSources) {
    RaiseAt(FailureNumber::StatementError,
            "A FROM has at most " + std::to_string(kMostSources) + " tables and selects, and this is one more", place);
  }
  return sources_.emplace_back(std::move(source));
}

void Scope::Rewrite(const ScopeSource& source, std::string text) {
  const auto own =
      std::find_if(sources_.begin(), sources_.end(), [&](const ScopeSource& one) { return &one == &source; });
  own->text = std::move(text);
}

const ScopeSource* Scope::FindSource(std::string_view name) const {
  const auto found = std::find_if(sources_.begin(), sources_.end(),
                                  [name](const ScopeSource& source) { return text::EqualNames(source.name, name); });
  return found == sources_.end() ? nullptr : &*found;
}

bool Scope::FindHere(const Expr& reference, FoundColumn& found) const {
  const std::size_t last = std::min(visible_.second, sources_.size());
  for (std::size_t i = visible_.first; i < last; ++i) {
    const ScopeSource& source = sources_[i];
    const ColumnInfo* column = MayMean(reference, source) ? source.info().Find(reference.name) : nullptr;
    if (column == nullptr) continue;
    if (found.source != nullptr) RaiseAmbiguous(reference);
    found = {&source, column, qualifies()};
  }
  return found.source != nullptr;
}

FoundColumn Scope::Find(const Expr& reference) const {
  FoundColumn found;
  for (const Scope* scope = this; scope != nullptr; scope = scope->outer_) {
    if (!scope->FindHere(reference, found)) continue;
    found.qualified = found.qualified || scope != this;
    if (scope->grouping_ != nullptr) scope->grouping_->Note(found, reference.place);
    return found;
  }
  RaiseAt(FailureNumber::NoSuchColumn, "The column '" + Written(reference) + "' is not known", reference.place);
}

}  // namespace zef::sql
