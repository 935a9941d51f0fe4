#pragma once

/// How many bytes stand behind the two words of a message to the host; 0 where it is no record.
struct RecordSizes {
    int w = 0;
    int l = 0;
};

RecordSizes recordSizes(unsigned message);
