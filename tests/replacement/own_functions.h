// What the client's own support functions in own_functions.cpp have seen.
#ifndef TESTS_REPLACEMENT_OWN_FUNCTIONS_H
#define TESTS_REPLACEMENT_OWN_FUNCTIONS_H

#include <string>
#include <vector>

/// Names of the own functions that were called, in order.
std::vector<std::string>& OwnCalls();

#endif
