#include "ado/embedded/Variable.h"

#include "ado/embedded/SqlType.h"
#include "ado/engine/DriverError.h"
#include "platform/Error.h"

namespace quorvel::ado::embedded {

Variable ParseVariable(TokenCursor& cursor) {
  Variable variable;
  variable.info.name = cursor.ExpectVariable();
  cursor.Accept("AS");
  const SqlType type = ParseType(cursor);
  variable.info.type = type.type;
  variable.info.size = type.size;
  return variable;
}

Value CoerceVariable(Value value, const ParameterInfo& info) {
  try {
    return CoerceToParameter(std::move(value), info);
  } catch (const Error& error) {
    throw DriverError(error.Number() == ErrorNumber::Overflow ? "22003" : "22018", 245, error.Description());
  }
}

}  // namespace quorvel::ado::embedded
