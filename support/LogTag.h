#pragma once

// The tag at the end of a log line: "|File|line".
#define LOG_TAG_TEXT(value) #value
#define LOG_TAG_AT(file, line) "|" file "|" LOG_TAG_TEXT(line)
#define LOG_TAG(file) LOG_TAG_AT(file, __LINE__)
