#pragma once

// The tag that ends a log line: "|GraphWidget|120".
#define VELMAR_TAG_TEXT(value) #value
#define VELMAR_TAG_LINE(file, line) "|" file "|" VELMAR_TAG_TEXT(line)
#define WIDGET_TAG VELMAR_TAG_LINE("GraphWidget", __LINE__)
