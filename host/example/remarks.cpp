#include <quorvel/quorvel.h>

#include <filesystem>
#include <iostream>
#include <stdexcept>
#include <string>

using namespace Quorvel;

/// A text that the component delivered; a path is the shortest way from UTF-16 to what std::cout takes.
std::string Take(BSTR text) {
  const std::filesystem::path path(std::basic_string<OLECHAR>(text, SysStringLen(text)));
  SysFreeString(text);
  return path.string();
}

/// Throws what the component says of a call that failed.
void Check(HRESULT result) {
  if (SUCCEEDED(result)) return;
  IErrorInfo* error = nullptr;
  BSTR description = nullptr;
  if (GetErrorInfo(0, &error) == S_OK) error->GetDescription(&description);
  throw std::runtime_error("error " + std::to_string(result) + ": " + Take(description));
}

int main() try {
  _RemarkContext* context = nullptr;
  Check(QuorvelCreate(OLESTR("Quorvel.RemarkContext"), IID__RemarkContext, reinterpret_cast<void**>(&context)));
  Check(context->Load(SysAllocString(OLESTR("CustMaint")), SysAllocString(OLESTR("C1044")), SysAllocString(OLESTR("jsmith"))));
  return 0;
} catch (const std::exception& error) {
  std::cerr << error.what() << '\n';
  return 1;
}
