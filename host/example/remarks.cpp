#include <quorvel/quorvel.h>

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <iostream>
#include <string>

using namespace Quorvel;

/// Whether a terminal may obey the character instead of showing it. Any user may have written the remark.
bool IsUnsafe(OLECHAR c) {
  const bool isControl = (c < 0x20 && c != '\n' && c != '\t') || (c >= 0x7F && c < 0xA0);
  const bool turnsWriting = (c >= 0x202A && c <= 0x202E) || (c >= 0x2066 && c <= 0x2069);  // shows it in another order
  return isControl || turnsWriting;
}

/// Frees a text from the component and returns it in the program's encoding, safe to print; std::filesystem::path
/// converts UTF-16.
std::string Take(BSTR text) {
  std::basic_string<OLECHAR> shown(text, SysStringLen(text));
  SysFreeString(text);
  std::replace_if(shown.begin(), shown.end(), IsUnsafe, OLECHAR{'?'});
  return std::filesystem::path(shown).string();
}

/// Ends the program with the component's description when a call has failed.
void Check(HRESULT result) {
  if (SUCCEEDED(result)) return;
  IErrorInfo* error = nullptr;
  BSTR description = nullptr;
  if (GetErrorInfo(0, &error) == S_OK) error->GetDescription(&description);
  std::cerr << "error 0x" << std::hex << static_cast<std::uint32_t>(result) << ": " << Take(description) << '\n';
  std::exit(1);
}

int main() {
#ifdef _WIN32
  CoInitialize(nullptr);
#endif
  _RemarkContext* context = nullptr;
  Check(QuorvelCreate(OLESTR("Quorvel.RemarkContext"), IID__RemarkContext, reinterpret_cast<void**>(&context)));
  BSTR place = SysAllocString(OLESTR("CustMaint"));
  BSTR owner = SysAllocString(OLESTR("C1044"));
  BSTR user = SysAllocString(OLESTR("jsmith"));
  Check(context->Load(place, owner, user));
  for (BSTR text : {place, owner, user}) SysFreeString(text);

  _RemarkList* list = nullptr;
  LONG count = 0;
  Check(context->get_RemarkList(&list));
  Check(list->get_Count(&count));
  VARIANT index;
  VariantInit(&index);
  index.vt = VT_I4;
  for (index.lVal = 1; index.lVal <= count; ++index.lVal) {
    _Remark* remark = nullptr;
    BSTR caption = nullptr, text = nullptr;
    Check(list->get_Item(&index, &remark));
    Check(remark->get_TypeCaption(&caption));
    Check(remark->get_MemoText(&text));
    std::cout << Take(caption) << ": " << Take(text) << '\n';
    remark->Release();
  }
  list->Release();
  Check(context->Dispose());
  context->Release();
}
