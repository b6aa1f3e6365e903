// Picks an account. Errors end here.
#include "editor/account_lookup.h"

#include "editor/general_ledger.h"
#include "platform/convert.h"
#include "platform/failure.h"
#include "platform/text.h"

namespace pricedown {
namespace {

void PickAccount(FormContext& form, FormField field) {
  const std::u16string text = form.view.Text(field);
  const ObjectPtr result = RequireObject(
      GeneralLedger(form.environment)->Call(u"AccountLookup", {Trim(text)}), u"AccountLookup");
  const Value account = result->Get(u"ReturnObject");
  // Nothing chosen: empty, or the object Nothing.
  if (account.IsNothing() || account == Value(nullptr)) return;
  form.view.SetText(field, ToText(RequireObject(account, u"ReturnObject")->Get(u"Number")));
  // Also when the field held that number already; the form may have closed while the picker was
  // open.
  if (!form.HasEnded()) form.view.SetToolEnabled(FormTool::Save, true);
  form.environment.screen.RunPendingMessages();
}

}  // namespace

void LookUpAccount(FormContext& form, FormField field) {
  Failure failure;
  try {
    PickAccount(form, field);
    return;
  } catch (...) {
    failure = CurrentFailure();
  }
  form.NotifyFailed(failure);
  // The form may have closed while the picker was open, or in the event.
  if (form.HasEnded()) return;
  form.environment.messages.Report(Concatenate({kLineBreak, FailureText(failure)}));
}

}  // namespace pricedown
