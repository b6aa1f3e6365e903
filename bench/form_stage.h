// The item class form on the one class of a company, on views that show nothing.
#pragma once

#include <array>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "bench/silent_user.h"
#include "bench/stage.h"
#include "editor/item_class_form.h"
#include "editor/record_copy.h"
#include "store/connection.h"
#include "store/statements.h"

namespace bench {

inline constexpr std::u16string_view kClass = u"00001";

class SilentFormScreen final : public pricedown::Screen {
 public:
  void SetMousePointer(pricedown::MousePointer) noexcept override {}
  void RunPendingMessages() override {}
  void SetPainting(bool) noexcept override {}
  double TwipsPerPixelY() const override { return 15; }
};

class SilentFields final : public pricedown::ItemClassFormView {
 public:
  std::u16string Text(pricedown::FormField field) const override {
    return texts_[static_cast<std::size_t>(field)];
  }
  void SetText(pricedown::FormField field, std::u16string_view text) override {
    texts_[static_cast<std::size_t>(field)] = text;
  }
  void Focus(pricedown::FormField) override {}
  void SetCaption(pricedown::FormCaption, std::u16string_view) override {}
  void SetToolTexts(pricedown::FormTool, std::u16string_view, std::u16string_view) override {}
  void SetToolEnabled(pricedown::FormTool, bool) override {}
  pricedown::ObjectPtr FormObject() override { return nullptr; }
  void Unload() override {}

 private:
  std::array<std::u16string, pricedown::kFormFields.size()> texts_;
};

// Shows nothing; the form reads the rows.
class SilentMemberList final : public pricedown::MemberListView {
 public:
  void SetColumnWidth(std::int32_t, std::int32_t) override {}
  void ShowRows(const pricedown::MemberRows&) override {}
  std::vector<std::int32_t> SelectedRows() const override { return selected; }

  std::vector<std::int32_t> selected;
};

// A form on the one class of a company.
class FormStage {
 public:
  explicit FormStage(const std::string& path) : stage_(MakeStage(path)) {}

  // The work of the edit command and the window until the user sees the rows.
  void Open() {
    const pricedown::Recordset rows =
        pricedown::Connection(Factory()).Execute(pricedown::statements::ItemsOfClass(kClass));
    form.SetMode(0);
    form.SetOpeningNumber(std::u16string(kClass));
    form.SetMemberList(pricedown::CopyRecords(Factory(), rows));
    form.SetSecondRecordSet(pricedown::CopyRecords(Factory(), form.MemberList()));
    form.Load();
  }
  void Click(pricedown::FormTool tool) { form.ToolClicked(tool); }
  void Send(const std::u16string& text) { pricedown::Connection(Factory()).Execute(text); }
  std::u16string Text(pricedown::FormField field) const { return fields_.Text(field); }
  pricedown::ObjectFactory& Factory() { return stage_->Factory(); }

 private:
  std::unique_ptr<Stage> stage_;
  pricedown::ThreadState state_;
  SilentFields fields_;

 public:
  SilentUser user;
  SilentFormScreen screen;
  pricedown::Environment environment{Factory(), state_, user, screen, u"pricedown_bench"};
  SilentMemberList list;
  pricedown::ItemClassForm form{environment, fields_, list};
};

}  // namespace bench
