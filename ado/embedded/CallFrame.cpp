#include "ado/embedded/CallFrame.h"

#include <fmt/format.h>

#include "ado/engine/DriverError.h"

namespace quorvel::ado::embedded {

Frame MakeFrame(const Program& procedure, GivenArguments given, std::string_view name) {
  if (given.size() > procedure.parameterCount) {
    throw DriverError("42000", 8144, fmt::format("Procedure or function {} has too many arguments specified.", name));
  }
  Frame frame;
  frame.reserve(procedure.variables.size());
  for (std::size_t i = 0; i < procedure.parameterCount; ++i) {
    const Variable& parameter = procedure.variables[i];
    if (i < given.size() && given[i]) {
      frame.push_back(std::move(*given[i]));
    } else if (parameter.defaultValue || parameter.info.direction != ParameterDirection::Input) {
      frame.push_back(parameter.defaultValue.value_or(Null{}));
    } else {
      throw DriverError("42000", 201,
                        fmt::format("Procedure or function '{}' expects parameter '{}', which was not supplied.", name,
                                    parameter.info.name));
    }
  }
  return frame;
}

std::size_t FindParameter(const Program& procedure, const CallStep::Argument& argument, std::size_t position,
                          std::string_view name) {
  if (argument.name.empty()) return position;
  for (std::size_t i = 0; i < procedure.parameterCount; ++i) {
    if (SameName(procedure.variables[i].info.name, argument.name)) return i;
  }
  throw DriverError("42000", 8145, fmt::format("{} is not a parameter for procedure {}.", argument.name, name));
}

}  // namespace quorvel::ado::embedded
