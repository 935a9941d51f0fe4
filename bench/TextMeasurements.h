#pragma once

// How often Qt measured a text since the program started, whoever asked.
long textMeasurements();
