#include "ado/odbc/CallSeam.h"

#include <utility>

namespace quorvel::ado::odbc {
namespace {

thread_local CallObserver* observerInForce = nullptr;

}  // namespace

CallObserver* Observe(CallObserver* observer) noexcept { return std::exchange(observerInForce, observer); }

bool MayCall(const char* function) { return observerInForce == nullptr || observerInForce->Allows(function); }

}  // namespace quorvel::ado::odbc
