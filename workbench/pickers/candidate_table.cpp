// The pickers' tables and statements, in the dialect that every company database understands. Typed
// text becomes quoted patterns; none of it is read as SQL.
#include "workbench/pickers/candidate_table.h"

#include "platform/convert.h"
#include "platform/text.h"

namespace workbench {
namespace {

using pricedown::Concatenate;
using pricedown::NumberText;

constexpr std::u16string_view kAccountColumns[] = {u"FNumber", u"FName"};
constexpr CandidateTable kAccounts{u"t_account",
                                   u"x1",
                                   u"FAccountID",
                                   u"FNumber",
                                   kAccountColumns,
                                   std::span(kAccountColumns).first(1),
                                   std::span(kAccountColumns).last(1)};

constexpr std::u16string_view kItemColumns[] = {u"FNumber", u"FName", u"FModel"};
constexpr std::u16string_view kItemCodes[] = {u"FNumber", u"FShortNumber"};
constexpr CandidateTable kItems{u"t_ICItem",
                                u"x2",
                                u"FItemID",
                                u"FNumber",
                                kItemColumns,
                                kItemCodes,
                                std::span(kItemColumns).last(2)};

// A whole range of ids is read if at least one in this many is wanted.
constexpr std::int64_t kSparsest = 3;

std::u16string Column(const CandidateTable& table, std::u16string_view column) {
  return Concatenate({table.alias, u".", column});
}

std::u16string From(const CandidateTable& table) {
  return Concatenate({u" FROM ", table.name, u" ", table.alias});
}

std::u16string ListOf(std::span<const std::int32_t> ids) {
  std::u16string list;
  for (const std::int32_t id : ids) {
    if (!list.empty()) list += u',';
    list += NumberText(id);
  }
  return list;
}

// A word as part of a literal that LIKE matches literally.
std::u16string Pattern(std::u16string_view word) {
  std::u16string pattern;
  for (const char16_t unit : word) {
    if (unit == u'%' || unit == u'_' || unit == u'[') {
      pattern += {u'[', unit, u']'};
    } else {
      pattern += unit;
      if (unit == u'\'') pattern += unit;
    }
  }
  return pattern;
}

std::u16string WordCondition(const CandidateTable& table, std::u16string_view word) {
  const std::u16string pattern = Pattern(word);
  std::u16string condition;
  const auto add = [&](std::u16string_view column, std::u16string_view before) {
    condition += Concatenate({condition.empty() ? u"(" : u" OR ", table.alias, u".", column,
                              u" LIKE '", before, pattern, u"%'"});
  };
  for (const std::u16string_view column : table.beginColumns) add(column, u"");
  for (const std::u16string_view column : table.insideColumns) add(column, u"%");
  return condition += u')';
}

bool IsBlank(char16_t unit) { return unit == u' ' || unit == u'\t' || unit == u'\u3000'; }

}  // namespace

const CandidateTable& AccountTable() { return kAccounts; }
const CandidateTable& ItemTable() { return kItems; }

std::vector<std::u16string> SearchWords(std::u16string_view text) {
  std::vector<std::u16string> words;
  bool inWord = false;
  for (const char16_t unit : text) {
    // The words go into literals, which must not contain control characters.
    if (IsBlank(unit) || unit < u' ') {
      inWord = false;
      continue;
    }
    if (!inWord) words.emplace_back();
    inWord = true;
    words.back() += unit;
  }
  return words;
}

std::u16string IdsStatement(const CandidateTable& table, std::u16string_view condition) {
  std::u16string statement = Concatenate({u"SELECT ", Column(table, table.idColumn), From(table)});
  // Parentheses keep the caller's OR from binding to what follows.
  if (!condition.empty()) statement += Concatenate({u" WHERE (", condition, u")"});
  return statement += Concatenate(
             {u" ORDER BY ", Column(table, table.codeColumn), u",", Column(table, table.idColumn)});
}

std::u16string RowsStatement(const CandidateTable& table, std::span<const std::int32_t> ids) {
  const std::u16string id = Column(table, table.idColumn);
  std::u16string statement = u"SELECT " + id;
  for (const std::u16string_view column : table.shownColumns) {
    statement += u"," + Column(table, column);
  }
  return statement += Concatenate({From(table), u" WHERE ", id, u" IN(", ListOf(ids), u")"});
}

std::u16string MatchStatement(const CandidateTable& table, std::span<const std::int32_t> ids,
                              std::span<const std::u16string> words) {
  const std::u16string id = Column(table, table.idColumn);
  std::u16string statement = Concatenate({u"SELECT ", id, From(table), u" WHERE ", id});
  const std::int64_t stretch = std::int64_t{ids.back()} - ids.front();
  if (stretch < kSparsest * static_cast<std::int64_t>(ids.size())) {
    statement +=
        Concatenate({u" BETWEEN ", NumberText(ids.front()), u" AND ", NumberText(ids.back())});
  } else {
    statement += Concatenate({u" IN(", ListOf(ids), u")"});
  }
  for (const std::u16string& word : words) statement += u" AND " + WordCondition(table, word);
  return statement;
}

}  // namespace workbench
