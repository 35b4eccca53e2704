// Loads Quorvel.dll, makes its first object and unloads it, in pairs with a COM server that does nothing. Prints the
// median times and the median of the pairs' ratios. Both DLLs are beside this program.

#include <initguid.h>
#include <unknwn.h>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <vector>

#include <quorvel/quorvel.h>

namespace {

constexpr int kPairs = 101;

using GetClassObject = HRESULT(STDAPICALLTYPE*)(REFCLSID, REFIID, void**);

[[noreturn]] void Fail(const wchar_t* library) {
  std::fwprintf(stderr, L"%ls cannot be loaded, or it makes no object\n", library);
  std::exit(1);
}

/// Microseconds until the object is there. It is released and the library unloaded afterwards.
double TimeOf(const wchar_t* library) {
  const auto begin = std::chrono::steady_clock::now();
  const HMODULE module = ::LoadLibraryW(library);
  if (module == nullptr) Fail(library);
  const auto entry =
      reinterpret_cast<GetClassObject>(reinterpret_cast<void*>(::GetProcAddress(module, "DllGetClassObject")));
  void* factory = nullptr;
  void* object = nullptr;
  if (entry == nullptr || FAILED(entry(Quorvel::CLSID_RemarkContext, IID_IClassFactory, &factory))) Fail(library);
  if (FAILED(static_cast<IClassFactory*>(factory)->CreateInstance(nullptr, IID_IUnknown, &object))) Fail(library);
  const std::chrono::duration<double, std::micro> time = std::chrono::steady_clock::now() - begin;
  static_cast<IUnknown*>(object)->Release();
  static_cast<IUnknown*>(factory)->Release();
  ::FreeLibrary(module);
  return time.count();
}

double Median(std::vector<double> values) {
  std::sort(values.begin(), values.end());
  return values[values.size() / 2];
}

}  // namespace

int main() {
  ::CoInitialize(nullptr);
  std::vector<double> component;
  std::vector<double> bare;
  std::vector<double> ratios;
  for (int pair = 0; pair < kPairs; ++pair) {
    component.push_back(TimeOf(L"Quorvel.dll"));
    bare.push_back(TimeOf(L"empty_server.dll"));
    ratios.push_back(component.back() / bare.back());
  }
  std::printf("component %.1f us, empty server %.1f us, ratio %.2f\n", Median(component), Median(bare), Median(ratios));
  ::CoUninitialize();
  return 0;
}
