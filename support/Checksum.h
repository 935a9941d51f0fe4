#pragma once

// CRC-32 of IEEE 802.3, started at all ones, without the final inversion, up to the first zero byte.
// 1 for a null text, else 0.
int getCRC32Code(unsigned int &crc, const char *text, int length);
