#pragma once

#include "module/HostRecords.h"

#include <vector>

class CRGraphLayer;
class CRIndicator;
class CRPrimitive;

// Whether a number that the host gave can be the length of a list of lines.
bool isListCount(int count);

// The output arrays of an object, by line; null where the host left one out, empty when it gave none.
std::vector<mvDataPointArray *> fetchOutputs(void *handle);

// Gives the object its source, ahead of the empty places of further ones; nothing when it has no place.
void handOverSource(void *handle, int places, mvDataPointArray *source);

// The scale kind of the first output.
int placementCode(const std::vector<mvDataPointArray *> &outputs);

// Adds the series of one output and refreshes it; with `askNames` the host is asked for display names.
// Null when it could not be made, or is gone again after the host was asked.
CRPrimitive *addOutput(CRIndicator &indicator, CRGraphLayer *layer, int lineIndex, mvDataPointArray *array,
                       bool askNames);
