#pragma once

// The tag at the end of a log line: "|File|line".
#define VELMAR_TAG_TEXT(line) #line
#define VELMAR_TAG_LINE(line) VELMAR_TAG_TEXT(line)
#define LOG_TAG(file) "|" file "|" VELMAR_TAG_LINE(__LINE__)
