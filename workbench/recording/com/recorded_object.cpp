// Identity, references and names of recorded objects.
#include "workbench/recording/com/recorded_object.h"

#include <algorithm>
#include <mutex>
#include <nlohmann/json.hpp>
#include <string_view>
#include <unordered_map>

#include "windows/com/module_counts.h"
#include "workbench/recording/com/recorder.h"

// How a recorded object of this module is recognised; answers the object itself.
// {6E2D2B64-2B5C-4B7E-9B0C-2E4C0B6C7A31}
static const IID kOwnInterface = {
    0x6E2D2B64, 0x2B5C, 0x4B7E, {0x9B, 0x0C, 0x2E, 0x4C, 0x0B, 0x6C, 0x7A, 0x31}};

namespace workbench {

using pricedown::windows::ComPtr;

namespace {

bool IsNamed(std::string_view member, std::string_view name) {
  return member.size() == name.size() &&
         std::equal(member.begin(), member.end(), name.begin(),
                    [](char left, char right) { return (left | 0x20) == (right | 0x20); });
}

}  // namespace

struct RecordedObject::Living {
  // Held for look-ups, names and the step of a count to zero; never while another object is called.
  std::mutex mutex;
  std::unordered_map<IUnknown*, RecordedObject*> objects;  // by identity, borrowed
};

RecordedObject::Living& RecordedObject::AllLiving() {
  static Living living;
  return living;
}

RecordedObject::RecordedObject(IUnknown* identity, ComPtr<IDispatch> real, std::string name)
    : identity_(identity),
      real_(std::move(real)),
      name_(std::move(name)),
      number_(Recorder::Instance().NextNumber()) {
  ++pricedown::windows::Counts().objects;
}

RecordedObject::~RecordedObject() { --pricedown::windows::Counts().objects; }

ComPtr<IUnknown> RecordedObject::Wrap(IUnknown* object, const std::string& name) {
  if (Of(object) != nullptr) return ComPtr<IUnknown>::Share(object);
  auto real = ComPtr<IUnknown>::Share(object).As<IDispatch>();
  const auto identity = ComPtr<IUnknown>::Share(object).As<IUnknown>();
  if (!real || !identity) return ComPtr<IUnknown>::Share(object);
  Living& living = AllLiving();
  const std::scoped_lock lock(living.mutex);
  RecordedObject*& known = living.objects[identity.get()];
  if (known != nullptr) return ComPtr<IUnknown>::Share(known);
  try {
    known = new RecordedObject(identity.get(), real.Copy(), name);
  } catch (...) {
    living.objects.erase(identity.get());
    throw;
  }
  return ComPtr<IUnknown>::Adopt(known);
}

void RecordedObject::WrapInPlace(IUnknown*& slot, const std::string& name) noexcept {
  if (slot == nullptr) return;
  WithoutFailing([&] {
    ComPtr<IUnknown> recorded = Wrap(slot, name);
    std::exchange(slot, recorded.release())->Release();
  });
}

RecordedObject* RecordedObject::Of(IUnknown* object) noexcept {
  void* found = nullptr;
  if (object == nullptr || FAILED(object->QueryInterface(kOwnInterface, &found))) return nullptr;
  auto* ours = static_cast<RecordedObject*>(found);
  ours->Release();
  return ours;
}

ObjectNumber RecordedObject::NumberOf(IUnknown* object) noexcept {
  const RecordedObject* ours = Of(object);
  return ours == nullptr ? kForeignObject : ours->number_;
}

STDMETHODIMP RecordedObject::QueryInterface(REFIID id, void** result) noexcept {
  if (result == nullptr) return E_POINTER;
  if (id != IID_IUnknown && id != IID_IDispatch && id != kOwnInterface) {
    return real_->QueryInterface(id, result);
  }
  AddRef();
  *result = this;
  return S_OK;
}

STDMETHODIMP_(ULONG) RecordedObject::AddRef() noexcept { return ++references_; }

STDMETHODIMP_(ULONG) RecordedObject::Release() noexcept {
  {
    Living& living = AllLiving();
    const std::scoped_lock lock(living.mutex);
    if (const ULONG left = --references_; left > 0) return left;
    living.objects.erase(identity_);
  }
  WithoutFailing([&] {
    CallClock clock;
    clock.Stop();
    Json line = clock.Line("release");
    Describe(line);
    if (rows_ > 0) line["rows"] = rows_.load();
    Recorder::Instance().Write(line);
  });
  delete this;
  return 0;
}

STDMETHODIMP RecordedObject::GetTypeInfoCount(UINT* count) noexcept {
  return real_->GetTypeInfoCount(count);
}

STDMETHODIMP RecordedObject::GetTypeInfo(UINT index, LCID locale, ITypeInfo** result) noexcept {
  return real_->GetTypeInfo(index, locale, result);
}

void RecordedObject::RememberName(DISPID id, std::string text) noexcept {
  WithoutFailing([&] {
    const std::scoped_lock lock(AllLiving().mutex);
    for (auto& [known, member] : members_) {
      if (known == id) {
        member = std::move(text);
        return;
      }
    }
    members_.emplace_back(id, std::move(text));
  });
}

std::string RecordedObject::MemberName(DISPID id) {
  const std::scoped_lock lock(AllLiving().mutex);
  for (const auto& [known, member] : members_) {
    if (known == id) return member;
  }
  return id == DISPID_VALUE ? std::string() : "[" + std::to_string(id) + "]";
}

void RecordedObject::Describe(Json& line) const {
  line["object"] = number_;
  line["name"] = name_;
}

void RecordedObject::CountRows(const std::string& member, long rows) {
  rows_ += rows == 0 && IsNamed(member, "MoveNext") ? 1 : rows;
}

}  // namespace workbench
