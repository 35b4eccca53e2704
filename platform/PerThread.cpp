#include "platform/PerThread.h"

#include <string>

#include "platform/Environment.h"
#include "platform/Error.h"

namespace quorvel {

void ThrowThreadHasEnded() {
  throw Error(ErrorNumber::Component, std::string(kApplicationName),
              "The thread is ending and its connection is closed: save before objects of the thread or static objects "
              "are destroyed");
}

}  // namespace quorvel
