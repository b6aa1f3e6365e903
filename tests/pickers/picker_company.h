// A company on disk for pickers, and a connection that records its statements. By default it is the
// sample company with a few items that the tests add.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "tests/sample/temporary_folder.h"
#include "workbench/company/connection.h"
#include "workbench/company/utf.h"
#include "workbench/pickers/candidate_list.h"
#include "workbench/sample/company_file.h"

namespace workbench::testing {

class PickerCompany final : public Connection {
 public:
  explicit PickerCompany(const CompanyFilePlan& plan = {}) {
    CreateCompanyFile(Path(), plan);
    company_ = OpenConnection(Path());
  }

  std::string Path() const { return folder_.PathOf("company.db"); }

  ResultSet Execute(std::u16string_view text) override {
    statements.emplace_back(text);
    if (fails) throw DatabaseError(u"数据库不可用。", 1);
    return company_->Execute(text);
  }

  void Begin() override { company_->Begin(); }
  void Commit() override { company_->Commit(); }
  void Rollback() noexcept override { company_->Rollback(); }
  std::unique_ptr<RowInserter> PrepareInsert(std::string_view table,
                                             std::string_view columns) override {
    return company_->PrepareInsert(table, columns);
  }
  void CreateTables() override { company_->CreateTables(); }
  void CreateIndexes() override { company_->CreateIndexes(); }
  void RequireCompany() override { company_->RequireCompany(); }

  // An item with that id, code, name and specification, as written in a literal.
  void AddItem(int id, std::u16string_view code, std::u16string_view name,
               std::u16string_view model) {
    const std::string number = std::to_string(id);
    std::u16string statement =
        u"INSERT INTO t_ICItem(FItemID,FErpClsID,FNumber,FName,FModel)VALUES(";
    statement.append(number.begin(), number.end()).append(u",1");
    for (const std::u16string_view text : {code, name, model}) {
      statement.append(u",'").append(text).append(u"'");
    }
    company_->Execute(statement += u")");
  }

  std::vector<std::u16string> statements;
  bool fails = false;

 private:
  TemporaryFolder folder_;
  std::unique_ptr<Connection> company_;
};

// Runs the search to its end.
inline void SearchAll(CandidateList& list, std::u16string_view text) {
  list.Search(text);
  while (list.IsSearching()) list.Advance();
}

// The codes of the rows found, joined by blanks.
inline std::string Codes(CandidateList& list) {
  std::string codes;
  for (std::size_t row = 0; row < list.Count(); ++row) {
    if (row > 0) codes += ' ';
    codes += Utf8FromUtf16(list.Row(row).front());
  }
  return codes;
}

}  // namespace workbench::testing
