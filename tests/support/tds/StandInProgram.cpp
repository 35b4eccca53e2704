#include <iostream>
#include <limits>

#include "tests/support/tds/StandInServer.h"

// stand_in_server <database file>: the stand-in for a SQL Server, for tests in other processes. Prints a line each with
// its address, its user and its password, and serves until its standard input ends.

int main(int count, char* arguments[]) {
  using quorvel::test::StandInServer;
  if (count != 2) return 2;
  const StandInServer server(arguments[1]);
  std::cout << server.Address() << '\n' << StandInServer::kUser << '\n' << StandInServer::kPassword << std::endl;
  std::cin.ignore(std::numeric_limits<std::streamsize>::max());
}
