#include "platform/Error.h"

#include "platform/Environment.h"

namespace quorvel {
namespace {

[[noreturn]] void Throw(std::int32_t number, const char* description) {
  throw Error(number, std::string(kApplicationName), description);
}

}  // namespace

void ThrowObjectNotSet() { Throw(ErrorNumber::ObjectNotSet, "Object variable or With block variable not set"); }

void ThrowSubscriptOutOfRange() { Throw(ErrorNumber::SubscriptOutOfRange, "Subscript out of range"); }

void ThrowInvalidUseOfNull() { Throw(ErrorNumber::InvalidUseOfNull, "Invalid use of Null"); }

void ThrowTypeMismatch() { Throw(ErrorNumber::TypeMismatch, "Type mismatch"); }

void ThrowOverflow() { Throw(ErrorNumber::Overflow, "Overflow"); }

void ThrowInvalidCall() { Throw(ErrorNumber::InvalidCall, "Invalid procedure call or argument"); }

void ThrowDuplicateKey() {
  Throw(ErrorNumber::DuplicateKey, "This key is already associated with an element of this collection");
}

void ThrowAlreadyModal() { Throw(ErrorNumber::AlreadyModal, "Form already displayed; can't show modally"); }

}  // namespace quorvel
