// The only file of the sample that calls the component. It turns texts, references and errors into C++ ones.

#include "host/sample/Component.h"

#include <cstdint>

#include <wx/strconv.h>

using namespace Quorvel;

namespace sample {
namespace {

/// Owns a text that is passed to the component or received from it.
class Text {
 public:
  Text() noexcept = default;
  explicit Text(const wxString& text) {
    const auto units = text.mb_str(wxMBConvUTF16());
    m_text = SysAllocStringByteLen(units.data(), static_cast<UINT>(units.length()));
  }
  ~Text() { SysFreeString(m_text); }
  Text(const Text&) = delete;
  Text& operator=(const Text&) = delete;

  [[nodiscard]] BSTR Get() const noexcept { return m_text; }
  /// The out argument of a call that returns a text.
  [[nodiscard]] BSTR* Receive() noexcept { return &m_text; }
  [[nodiscard]] wxString ToWx() const {
    return {reinterpret_cast<const char*>(m_text), wxMBConvUTF16(), SysStringByteLen(m_text)};
  }

 private:
  BSTR m_text = nullptr;
};

struct Releaser {
  void operator()(IUnknown* object) const noexcept { object->Release(); }
};
template <typename Interface>
using Owned = std::unique_ptr<Interface, Releaser>;

/// An HRESULT contains the numbers of the language runtime; other numbers cross unchanged.
long NumberOf(HRESULT result) {
  const auto bits = static_cast<std::uint32_t>(result);
  return bits >> 16U == 0x800AU ? static_cast<long>(bits & 0xFFFFU) : static_cast<long>(result);
}

/// The component's error of the call that has just failed.
ComponentError ErrorOf(HRESULT result) {
  ComponentError failure{NumberOf(result), "Quorvel", "The component could not be called."};
  IErrorInfo* taken = nullptr;
  if (GetErrorInfo(0, &taken) == S_OK) {
    const Owned<IErrorInfo> error(taken);
    Text source;
    Text description;
    if (SUCCEEDED(error->GetSource(source.Receive()))) failure.source = source.ToWx();
    if (SUCCEEDED(error->GetDescription(description.Receive()))) failure.description = description.ToWx();
  }
  return failure;
}

void Check(HRESULT result) {
  if (FAILED(result)) throw ErrorOf(result);
}

std::unique_ptr<_RemarkContext, ContextCloser> NewContext() {
  void* object = nullptr;
  Check(QuorvelCreate(OLESTR("Quorvel.RemarkContext"), IID__RemarkContext, &object));
  return std::unique_ptr<_RemarkContext, ContextCloser>(static_cast<_RemarkContext*>(object));
}

}  // namespace

void ContextCloser::operator()(_RemarkContext* context) const noexcept {
  context->Dispose();
  context->Release();
}

OwnersRemarks::OwnersRemarks(const wxString& place, const wxString& owner, const wxString& user)
    : m_context(NewContext()) {
  Check(m_context->Load(Text(place).Get(), Text(owner).Get(), Text(user).Get()));
}

long OwnersRemarks::PopupCount() const {
  LONG count = 0;
  Check(m_context->get_PopupCount(&count));
  return count;
}

void OwnersRemarks::PopUp() { Check(m_context->PopupMemos(VARIANT_FALSE)); }

void OwnersRemarks::Edit() { Check(m_context->EditMemos(VARIANT_FALSE)); }

void OwnersRemarks::Save() { Check(m_context->Save(VARIANT_TRUE)); }

bool OwnersRemarks::IsUnsaved() const {
  _RemarkList* delivered = nullptr;
  Check(m_context->get_RemarkList(&delivered));
  const Owned<_RemarkList> list(delivered);
  VARIANT_BOOL dirty = VARIANT_FALSE;
  if (list) Check(list->get_Dirty(&dirty));
  return dirty != VARIANT_FALSE;
}

bool OwnersRemarks::IsLeftToSave() const {
  EditBehavior behavior = AutoSaveOnClose;
  Check(m_context->get_EditBehavior(&behavior));
  return behavior == NoAutoSave;
}

wxString ConnectionString() {
  Text text;
  Check(NewContext()->get_ConnectionString(text.Receive()));
  return text.ToWx();
}

void OpenAdministration() { Check(NewContext()->ViewManager(1)); }

}  // namespace sample
