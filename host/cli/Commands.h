#pragma once

namespace CLI {
class App;
}

/// The commands of the program `quorvel`. Each function adds one command; parsing a command line that names it runs it.
/// A command writes its result to the standard output. It throws quorvel::Error when it fails or refuses, and
/// CLI::ValidationError when its arguments contradict each other.
namespace quorvel::cli {

void AddSettingsCommand(CLI::App& app);
void AddInitCommand(CLI::App& app);
void AddRunCommand(CLI::App& app);
void AddListCommand(CLI::App& app);
void AddPopupCommand(CLI::App& app);
void AddEditorCommand(CLI::App& app);
void AddAddCommand(CLI::App& app);
void AddChangeCommand(CLI::App& app);
void AddRemoveCommand(CLI::App& app);
void AddManageCommand(CLI::App& app);
void AddDoctorCommand(CLI::App& app);

}  // namespace quorvel::cli
