#pragma once
// Every record that crosses the boundary between the module and its host. Packed, little-endian,
// 32-bit addresses; sizes and offsets are asserted beside each definition.
#include "module/records/Words.h"

#include "module/records/Arrays.h"
#include "module/records/Dealing.h"
#include "module/records/Events.h"
#include "module/records/LineStudies.h"
#include "module/records/MainWindow.h"
#include "module/records/Names.h"
#include "module/records/Objects.h"
#include "module/records/Properties.h"
#include "module/records/Trees.h"
#include "module/records/Undo.h"
#include "module/records/WindowComponent.h"
