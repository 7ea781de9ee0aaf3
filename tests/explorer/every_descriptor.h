#pragma once

#include "tests/multiplex/bytes_writer.h"

#include <vector>

namespace test {

/// A descriptor of every class, in ascending order of the tags and with the outermost bits of the
/// fields set; of a class with entries three: without any, with one and with two.
std::vector<Bytes> everyDescriptor();

} // namespace test
