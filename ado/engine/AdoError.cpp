#include "ado/engine/AdoError.h"

#include <string>

#include "platform/Error.h"

namespace quorvel::ado {
namespace {

std::string_view Sentence(std::int32_t number) {
  switch (number) {
    case ErrorNumber::AdoInvalidArgument:
      return "Arguments are of the wrong type, are out of acceptable range, or are in conflict with one another.";
    case ErrorNumber::AdoNoCurrentRecord:
      return "Either BOF or EOF is True, or the current record has been deleted. Requested operation requires a "
             "current record.";
    case ErrorNumber::AdoItemNotFound:
      return "Item cannot be found in the collection corresponding to the requested name or ordinal.";
    case ErrorNumber::AdoDataConversion:
      return "Application uses a value of the wrong type for the current operation.";
    case ErrorNumber::AdoObjectClosed:
      return "Operation is not allowed when the object is closed.";
    case ErrorNumber::AdoObjectOpen:
      return "Operation is not allowed when the object is open.";
    case ErrorNumber::AdoInvalidConnection:
      return "The connection cannot be used to perform this operation. It is either closed or invalid in this context.";
    default:
      return "The operation failed.";
  }
}

}  // namespace

void ThrowAdoError(std::int32_t number, std::string_view detail) {
  std::string description(Sentence(number));
  if (!detail.empty()) description.append(" ").append(detail);
  throw Error(number, "Quorvel.ADO", std::move(description));
}

}  // namespace quorvel::ado
