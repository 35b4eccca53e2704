// GoogleTest and the standard headers that most tests use, compiled once for all test programs: they take a third of
// the time of a test's source. A source still includes what it uses, and the sanitized build shows when it does not:
// there it gets no more than GoogleTest, which it includes itself.
#include <gtest/gtest.h>

#ifndef QUORVEL_SANITIZED
#include <gmock/gmock.h>

#include <algorithm>
#include <chrono>
#include <filesystem>
#include <fstream>
#include <functional>
#include <map>
#include <optional>
#include <sstream>
#include <string>
#include <thread>
#include <vector>
#endif
