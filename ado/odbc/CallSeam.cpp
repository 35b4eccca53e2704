#include "ado/odbc/CallSeam.h"

#include <utility>

namespace quorvel::ado::odbc {
namespace {

thread_local CallObserver* currentObserver = nullptr;

}  // namespace

CallObserver* Observe(CallObserver* observer) noexcept { return std::exchange(currentObserver, observer); }

bool MayCall(const char* function) { return currentObserver == nullptr || currentObserver->Allows(function); }

}  // namespace quorvel::ado::odbc
