// The parser of the dialect: reads a statement and writes its equivalent for SQLite. Callers use
// TranslateText (dialect.h).
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "workbench/company/dialect.h"
#include "workbench/company/name_scope.h"
#include "workbench/company/operand.h"
#include "workbench/company/token_cursor.h"

namespace workbench {

struct ResultItem {
  std::string name;  // empty for an expression without an alias
  OperandKind kind = OperandKind::Other;
  std::string declaredType;
};

struct Query {
  std::string sql;
  bool hasStar = false;  // then `items` is empty
  std::vector<ResultItem> items;
  std::optional<Token> topNumber;  // of TOP
};

class Translator {
 public:
  // The schema outlives the translator.
  Translator(std::u16string_view text, TableSchema& schema);

  TranslatedText TranslateAll();

 private:
  // translate_expressions.cpp
  Operand ParseExpression();  // a condition or a value
  Operand ParseCondition();   // refuses a value
  Operand ParseValue();       // refuses a condition
  Operand ParseConjunction();
  Operand ParseNegation();
  Operand ParsePredicate();
  Operand ParseSum();
  Operand ParsePrimary();
  Operand ParseParenthesized();
  Operand ParseSignedNumber();
  Operand ParseColumnOrFunction();
  Operand ParseExists();
  Operand ParseLike(Operand left, bool negated);
  Operand ParseBetween(Operand left, bool negated);
  Operand ParseIn(Operand left, bool negated);
  Operand ParseIsNullTest(Operand left);
  Operand Compare(Operand left, std::string_view comparison, Operand right);
  void RequireCondition(const Operand& operand) const;
  void RequireValue(const Operand& operand) const;

  // translate_functions.cpp
  Operand ParseFunction(const Token& name);
  Operand ParseIsNull(const Token& name);
  Operand ParseAggregate(const Token& name);

  // translate_queries.cpp
  Query ParseQuery();
  Query ParseSelect();  // leaves its scope open
  void ParseSelectList(Query& query);
  void ParseSelectItem(Query& query, bool& hasAggregate, std::optional<Token>& plain);
  void SkipToFrom();
  std::string ParseFrom();
  std::string ParseTable();
  std::string ParseJoins();
  std::string ParseWhere();  // empty where there is none
  std::string ParseSetOperations(Query& query);
  std::string ParseOrderBy(const Query& query, bool isCompound);
  std::string ParseOrderTerm(const Query& query, bool isCompound);

  // translate_changes.cpp
  void ParseStatement();
  void ParseInsert();
  void ParseInsertTarget();
  void ParseInsertedValues();
  void ParseInsertedQuery();
  void ParseDelete();
  void ParseJoinedDelete(const Token& target);
  void ParseUpdate();
  std::string ParseTargetTable();
  ResultItem TargetColumn(std::string_view table, const Token& column) const;
  [[noreturn]] void RefuseTypes(std::size_t offset) const;
  void AddStatement(StatementShape shape);

  // Refuses deep nesting before it can exhaust the stack.
  class DepthGuard {
   public:
    explicit DepthGuard(Translator& translator);
    ~DepthGuard() { --translator_.depth_; }
    DepthGuard(const DepthGuard&) = delete;
    DepthGuard& operator=(const DepthGuard&) = delete;

   private:
    Translator& translator_;
  };

  // What is between INSERT and VALUES.
  struct InsertTarget {
    std::u16string_view source;  // as written
    std::string sql;             // as translated, with INSERT
    std::vector<ResultItem> columns;
  };

  TokenCursor cursor_;
  NameScopes scopes_;
  TranslatedText result_;
  InsertTarget insertTarget_;
  std::unordered_map<std::string, std::size_t> insertShapes_;  // sql to index of the shape
  int depth_ = 0;
  bool aggregatesAllowed_ = false;
  bool insideAggregate_ = false;
};

}  // namespace workbench
