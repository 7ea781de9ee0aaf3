#pragma once

// What nearly every test needs: texts, files, folders, matchers, and the names of the program.

#include "tests/support/bytes.h"
#include "tests/support/temporary_folder.h"
#include "tests/support/worked_cases.h"

#include <algorithm>
#include <array>
#include <chrono>
#include <filesystem>
#include <functional>
#include <gmock/gmock.h>
#include <limits>
#include <map>
#include <memory>
#include <optional>
#include <set>
#include <span>
#include <sstream>
#include <stdexcept>
#include <string>
#include <string_view>
#include <thread>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

namespace tessaview {
}

namespace fs = std::filesystem;
using namespace std::chrono_literals;
using namespace std::string_view_literals;
using namespace tessaview;
using namespace test;
using testing::Contains;
using testing::ElementsAre;
using testing::EndsWith;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;
using testing::SizeIs;
using testing::StartsWith;
