// A step that fails loses what it would have copied; the copying goes on.
#include "editor/record_copy.h"

#include <string_view>
#include <vector>

#include "editor/member_list.h"
#include "platform/skip.h"

namespace pricedown {
namespace {

// Browser: all rows, committed row by row. Form: the rows that pass the filter, committed once.
enum class Manner { Browser, Form };

// No object when a copy cannot be made or opened.
Recordset MakeLike(ObjectFactory& factory, const std::vector<FieldDefinition>& fields) {
  Recordset copy;
  SkipFailing([&] { copy = Recordset::Create(factory); });
  for (const FieldDefinition& field : fields) {
    SkipFailing([&] { copy.AppendField(field); });
  }
  return SkipFailing([&] { copy.Open(); }) ? copy : Recordset();
}

// One field in both recordsets; a field that either of them lacks is not copied.
struct FieldPair {
  BoundFields from;
  BoundFields to;
};

std::vector<FieldPair> PairFields(const Recordset& source, const Recordset& copy,
                                  const std::vector<FieldDefinition>& fields) {
  std::vector<FieldPair> pairs;
  for (const FieldDefinition& field : fields) {
    SkipFailing([&] { pairs.push_back({{source, {field.name}}, {copy, {field.name}}}); });
  }
  return pairs;
}

// A source that fails counts as at its end, so that the loop ends.
bool HasRow(const Recordset& source) {
  bool atEnd = true;
  SkipFailing([&] { atEnd = source.AtEnd(); });
  return !atEnd;
}

void CopyRow(const Recordset& copy, const std::vector<FieldPair>& fields) {
  // Without a new row the values would go into the one before.
  if (!SkipFailing([&] { copy.AddNew(); })) return;
  for (const FieldPair& field : fields) {
    SkipFailing([&] { field.to.Set(0, field.from.Get(0)); });
  }
}

void CopyRows(const Recordset& source, const Recordset& copy, const std::vector<FieldPair>& fields,
              Manner manner) {
  while (HasRow(source)) {
    CopyRow(copy, fields);
    if (manner == Manner::Browser) SkipFailing([&] { copy.UpdateBatch(); });
    // A source that does not move on would be copied forever.
    if (!SkipFailing([&] { source.MoveNext(); })) break;
  }
  if (manner == Manner::Form) SkipFailing([&] { copy.UpdateBatch(); });
}

Recordset Copy(ObjectFactory& factory, const Recordset& source, Manner manner) {
  std::vector<FieldDefinition> fields;
  SkipFailing([&] { fields = source.Fields(); });
  Recordset copy = MakeLike(factory, fields);
  if (!copy) return copy;
  if (manner == Manner::Browser) SkipFailing([&] { source.SetFilter({}); });
  SkipFailing([&] { source.MoveFirst(); });
  CopyRows(source, copy, PairFields(source, copy, fields), manner);
  SkipFailing([&] { copy.MoveFirst(); });
  return copy;
}

}  // namespace

Recordset CopyRecords(ObjectFactory& factory, const Recordset& source) {
  return Copy(factory, source, Manner::Browser);
}

Recordset CopyList(ObjectFactory& factory, const Recordset& source) {
  return Copy(factory, source, Manner::Form);
}

}  // namespace pricedown
