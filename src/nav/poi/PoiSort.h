#pragma once

#include "nav/poi/PoiEntry.h"

#include <vector>

// Sorts the points by longitude ascending (points of equal longitude in any order). A radix sort on the
// longitude's leading 32 bits, then each run that shares them sorted exactly: a million points in a few
// passes over the array, where comparison sorting took longer than reading the file.
void SortByLongitude(std::vector<PoiEntry>& entries);
