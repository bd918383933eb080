// PDUs that several tests decode, put together by hand.
#ifndef TESTS_DECODER_SAMPLES_H
#define TESTS_DECODER_SAMPLES_H

namespace tests {

/// From +12345678901 by way of +123456789012: "Hello".
constexpr const char* c_deliver = "07 91 21 43 65 87 09 21"    // service centre
                                  "04 0B 91 21 43 65 87 09 F1" // first octet, TP-OA
                                  "00 00 21 20 31 21 43 65 80" // TP-PID, TP-DCS, TP-SCTS
                                  "05 C8 32 9B FD 06";
/// From "ABC", six hours west, TP-RP: "Hi" as 8-bit data, class 2.
constexpr const char* c_deliverFromLetters = "00 84 06 D0 41 E1 10 40 F6 21 20 31 21 43 65 4A 02 48 69";
/// To +4179123, relative validity period: "Hi", class 1, UCS2.
constexpr const char* c_submit = "00"                       // service centre
                                 "B5 2A 07 91 14 97 21 F3"  // RP, SRR, VPF 10, RD; TP-MR, TP-DA
                                 "7F 19 A7 04 00 48 00 69"; // TP-PID, TP-DCS, TP-VP
/// To 1234, absolute validity period: "Hi" as 8-bit data.
constexpr const char* c_submitAbsolute = "00 19 00 04 81 21 43 00 04 21 20 31 21 43 65 80 02 48 69";
/// To 1234, enhanced validity period, whose octets read as "Hi" as 8-bit data.
constexpr const char* c_submitEnhanced = "00 09 07 04 81 21 43 00 04 02 48 69 00 00 00 00 00";
/// On message 0x2A to +4179123: not obtainable.
constexpr const char* c_report = "00 02 2A 07 91 14 97 21 F3 21 20 31 21 43 65 80 21 20 31 21 44 00 80 43";
/// Of the reserved type, from 1234.
constexpr const char* c_reserved = "00 FF 04 81 21 43 00";
/// Part 2 of 3 of message 0x2A: "ello".
constexpr const char* c_part = "00 44 04 81 21 43 00 00 21 20 31 21 43 65 00"
                               "0B 05 00 03 2A 03 02 CA 6C F6 1B";
/// Part 1 of 3 of message 0x1234: "Hello".
constexpr const char* c_part16 = "00 44 04 81 21 43 00 00 21 20 31 21 43 65 00"
                                 "0D 06 08 04 12 34 03 01 C8 32 9B FD 06";
/// Part 1 of 2 of message 1, after an element of port numbers, no validity period: "Hi" in UCS2.
constexpr const char* c_submitPart = "00 41 00 04 81 21 43 00 08"
                                     "10 0B 05 04 0B 84 23 F0 00 03 01 02 01 00 48 00 69";
/// Five voice messages are waiting: "Hi", to be stored.
constexpr const char* c_waiting = "00 44 04 81 21 43 00 D0 21 20 31 21 43 65 00"
                                  "08 04 01 02 80 05 C8 34";

constexpr const char* c_samples[] = {
    c_deliver, c_deliverFromLetters, c_submit, c_submitAbsolute, c_submitEnhanced,
    c_report,  c_reserved,           c_part,   c_part16,         c_submitPart,
    c_waiting};

} // namespace tests

#endif
