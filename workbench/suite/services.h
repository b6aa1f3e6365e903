// The suite's services as automation objects, one class per ProgID, with shared state in
// SuiteState.
#pragma once

#include <memory>
#include <string>

#include "platform/local_object.h"
#include "workbench/suite/dictionary.h"
#include "workbench/suite/suite_state.h"

namespace workbench {

using SuiteStatePtr = std::shared_ptr<SuiteState>;

// `ZEPConnection.AppConnection`: Execute(text) returns a recordset.
class AppConnection : public pricedown::LocalObject<AppConnection> {
 public:
  explicit AppConnection(SuiteStatePtr suite) : suite_(std::move(suite)) {}
  pricedown::Value Execute(std::u16string_view statement);
  static std::span<const pricedown::Member<AppConnection>> Members();

 private:
  SuiteStatePtr suite_;
};

// `ZEPEBSBase.SystemProfile`: GetProfile(properties, category, key); Empty when absent.
class SystemProfile : public pricedown::LocalObject<SystemProfile> {
 public:
  explicit SystemProfile(SuiteStatePtr suite) : suite_(std::move(suite)) {}
  pricedown::Value GetProfile(std::u16string_view category, std::u16string_view key);
  static std::span<const pricedown::Member<SystemProfile>> Members();

 private:
  SuiteStatePtr suite_;
};

// `ZEPCBSSystemData.AisInfo`: PropsString, CBGetPeriodCount, GetPeriodDate(year, period).
class AisInfo : public pricedown::LocalObject<AisInfo> {
 public:
  explicit AisInfo(SuiteStatePtr suite) : suite_(std::move(suite)) {}
  std::int32_t PeriodCount();
  // The first day of a period (calendar.h).
  pricedown::Value PeriodDate(std::int32_t year, std::int32_t period);
  std::u16string propsString;
  static std::span<const pricedown::Member<AisInfo>> Members();

 private:
  SuiteStatePtr suite_;
};

// `ZEPPropsMgr.ShareProps`: GetProperty(name, value by reference).
class ShareProps : public pricedown::LocalObject<ShareProps> {
 public:
  explicit ShareProps(SuiteStatePtr suite) : suite_(std::move(suite)) {}
  // Empty for an unknown name.
  pricedown::Value Property(std::u16string_view name) const;
  static std::span<const pricedown::Member<ShareProps>> Members();

 private:
  SuiteStatePtr suite_;
};

// `ZEPEBCGLView.GLData`: AccessCheck(objectType, objectNumber, mask).
class GLData : public pricedown::LocalObject<GLData> {
 public:
  explicit GLData(SuiteStatePtr suite) : suite_(std::move(suite)) {}
  static std::span<const pricedown::Member<GLData>> Members();
  SuiteState& Suite() { return *suite_; }

 private:
  SuiteStatePtr suite_;
};

// `ZEPEBCBASE.UserProfile`: Load(application, section), Dictionary, Save(application, section).
class UserProfile : public pricedown::LocalObject<UserProfile> {
 public:
  explicit UserProfile(SuiteStatePtr suite) : suite_(std::move(suite)) {}
  void Load(std::u16string_view application, std::u16string_view section);
  void Save(std::u16string_view application, std::u16string_view section);
  const std::shared_ptr<Dictionary>& Values() const { return values_; }
  static std::span<const pricedown::Member<UserProfile>> Members();

 private:
  SuiteStatePtr suite_;
  std::shared_ptr<Dictionary> values_ = std::make_shared<Dictionary>();
};

}  // namespace workbench
