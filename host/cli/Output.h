#pragma once

#include <stdexcept>
#include <string>

#include "platform/Error.h"

/// The standard streams of the program, which may be closed, full or a broken pipe.
namespace quorvel::cli {

/// To be called first. A broken pipe becomes an error of the write, and no file that is opened later gets the number of
/// a closed stream: what is printed must not end up in a database.
void PrepareStreams();

/// Writes what was printed. Throws std::system_error when the standard output did not take all of it.
void FinishOutput();

/// Thrown by a command that has done its work and could not print that: its status is success, because a second try
/// would do the work twice.
class DoneButNotPrinted : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

/// Prints the result of a command that has changed the database. Throws DoneButNotPrinted with `done`, "Added remark
/// 7", and the reason.
void PrintDone(const std::string& done, const std::string& details);

/// The exception that is nested in an error, in brackets after a blank; empty without one. Hosts do not see it.
[[nodiscard]] std::string CauseOf(const Error& error);

/// Prints to the standard error, if that takes it.
void PrintToErrors(const std::string& text) noexcept;

}  // namespace quorvel::cli
