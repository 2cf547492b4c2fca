#pragma once

#include <string>
#include <string_view>

#include "platform/run_time_error.h"
#include "platform/sql/ast.h"
#include "platform/sql/schema.h"

namespace zef::sql {

/// Raises -2147217900 with this sentence.
[[noreturn]] void Refuse(const std::string& sentence);

/// A column as it stands in CREATE TABLE and ALTER TABLE, with its type in the engine's words.
std::string ColumnText(const ColumnDefinition& column, const std::string& declared_type);

/// Carries out one CREATE, ALTER or DROP inside the running transaction. What must hold before it, and the sentence if
/// it does not, is the same on every engine; how a table is changed is the engine's own.
class SchemaChanger {
 public:
  explicit SchemaChanger(const SchemaChange& change) : change_(change) {}
  virtual ~SchemaChanger() = default;
  SchemaChanger(const SchemaChanger&) = delete;
  SchemaChanger& operator=(const SchemaChanger&) = delete;

  /// Raises -2147217857 and -2147217858 for a table or column that exists already, -2147217865 and -2147217904 for one
  /// that does not, -2147217833 and -2147217913 for stored values that a changed column cannot take.
  void Apply();

 protected:
  const SchemaChange& change() const { return change_; }
  /// Raises -2147217904 if there is no such column.
  static const ColumnInfo& Column(const TableInfo& table, std::string_view name);
  void AddConstraints();
  void RequireNoIndex(const std::string& name);

 private:
  virtual void Run(const std::string& text) = 0;
  /// Without columns if there is no such table.
  virtual TableInfo Describe(std::string_view table) = 0;
  /// The index of that name as it was declared, without regard to letter case, or the empty text. The keys of tables
  /// are no indexes to their users.
  virtual std::string IndexNamed(const std::string& name) = 0;
  /// What would break without the column, in words, an index before a relationship; empty if nothing would.
  virtual std::string UseOf(const TableInfo& table, const ColumnInfo& column) = 0;
  /// The column in the words of this engine's CREATE TABLE.
  virtual std::string Declared(const ColumnDefinition& column) = 0;

  virtual void MakeTable() = 0;
  virtual void MakeIndex(const TableInfo& table) = 0;
  virtual void RemoveIndex(const std::string& index) = 0;
  virtual void ChangeColumn(const TableInfo& table, const ColumnInfo& old, const ColumnDefinition& column) = 0;
  virtual void MakeConstraint(const TableInfo& table, const Constraint& constraint) = 0;
  /// False if the table has no constraint of the change's name.
  virtual bool RemoveConstraint(const TableInfo& table) = 0;

  TableInfo Table();
  void CreateTable();
  void CreateIndex();
  void DropTable();
  void DropIndex();
  void AddColumn();
  void AlterColumn();
  void DropColumn();
  void DropConstraint();

  const SchemaChange& change_;
};

}  // namespace zef::sql
