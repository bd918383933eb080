/// @file
/// The values of the fields of a short message, as the codecs give and take them.
///
/// The numbers are binding: hosts store them. Every enumeration is held in an int, so that a value that has
/// no name here can be passed and kept. Most are not the bits on the wire; those stand beside them.
#ifndef ENCODING_FIELDS_H
#define ENCODING_FIELDS_H

namespace Encoding {

/// TP-MTI, 3GPP TS 23.040 clause 9.2.3.1.
struct MessageTypeIndicator {
    /// The type of the message.
    enum TP_MTI_Type : int {
        TP_MTI_UNKNOWN = 0,          ///< bits 11, reserved
        TP_MTI_SMS_SUBMIT = 1,       ///< bits 01
        TP_MTI_SMS_DELIVER = 2,      ///< bits 00
        TP_MTI_SMS_STATUS_REPORT = 3 ///< bits 10
    };
};

/// Type of number, 3GPP TS 23.040 clause 9.1.2.5. The values 0, 3, 4 and 6 are never produced.
struct TypeOfNumber {
    /// What the digits of a number begin with.
    enum TON : int {
        TON_UNKNOWN = 1,       ///< every bit pattern not listed here
        TON_INTERNATIONAL = 2, ///< bits 001
        TON_ALPHANUMERIC = 5,  ///< bits 101
        TON_RESERVED = 7       ///< bits 111
    };
};

/// Numbering plan identification, 3GPP TS 23.040 clause 9.1.2.5.
struct NumberingPlan {
    /// The plan that a number belongs to.
    enum NPI : int {
        NPI_UNKNOWN = 0,  ///< bits 0000 and every pattern not listed here
        NPI_ISDN = 1,     ///< bits 0001
        NPI_DATA = 2,     ///< bits 0011
        NPI_TELEX = 3,    ///< bits 0100
        NPI_NATIONAL = 4, ///< bits 1000
        NPI_PRIVATE = 5,  ///< bits 1001
        NPI_ERMES = 6,    ///< bits 1010
        NPI_RESERVED = 7  ///< bits 1111
    };
};

/// Alphabet of the user data, 3GPP TS 23.038 clause 4.
struct Alphabet {
    /// How the user data are to be read.
    enum Encoding : int {
        ALPHABET_GSM7 = 0,    ///< GSM 7-bit default alphabet
        ALPHABET_8BIT = 1,    ///< 8-bit data
        ALPHABET_UCS2 = 2,    ///< UCS2, big-endian 16-bit units
        ALPHABET_RESERVED = 3 ///< reserved
    };
};

/// Message class, 3GPP TS 23.038 clause 4.
struct MessageClass {
    /// Where the message is meant to go.
    enum Class : int {
        CLASS_0 = 0,   ///< shown at once
        CLASS_1 = 1,   ///< ME-specific
        CLASS_2 = 2,   ///< (U)SIM-specific
        CLASS_3 = 3,   ///< TE-specific
        CLASS_NONE = 4 ///< no class
    };
};

/// Relative validity periods that have a name, 3GPP TS 23.040 clause 9.2.3.12.1.
struct ValidityPeriod {
    /// How long the service centre keeps on trying.
    enum TP_VP_Period : int {
        TP_VP_1_HOUR = 0,   ///< octet 11
        TP_VP_2_HOURS = 1,  ///< octet 23
        TP_VP_6_HOURS = 2,  ///< octet 71
        TP_VP_12_HOURS = 3, ///< octet 143
        TP_VP_1_DAY = 4,    ///< octet 167
        TP_VP_1_WEEK = 5,   ///< octet 173
        TP_VP_MAXIMUM = 6   ///< octet 255, 63 weeks
    };
};

/// Selectable transliterations. Other values can be selected and found again, but change no character.
struct TranslateTable {
    /// The table.
    enum TT : int {
        GREEK = 1 ///< Greek letters become capitals that the GSM 7-bit default alphabet can show
    };
};

/// Outcome of a delivery, from TP-ST, 3GPP TS 23.040 clause 9.2.3.15.
struct DeliveryStatus {
    /// What became of the message.
    enum TP_ST_Status : int {
        ST_RECEIVED = 0,                       ///< 0x00 received by the SME
        ST_FORWARDED_UNCONFIRMED = 1,          ///< 0x01 forwarded to the SME, delivery not confirmed
        ST_REPLACED = 2,                       ///< 0x02 replaced by the service centre
        ST_CONGESTION = 3,                     ///< 0x20 congestion, still trying
        ST_SME_BUSY = 4,                       ///< 0x21 SME busy, still trying
        ST_NO_RESPONSE = 5,                    ///< 0x22 no response from the SME, still trying
        ST_SERVICE_REJECTED = 6,               ///< 0x23 service rejected, still trying
        ST_QUALITY_OF_SERVICE_UNAVAILABLE = 7, ///< 0x24 still trying, and 0x44 permanent
        ST_ERROR_IN_SME = 8,                   ///< 0x25 error in the SME, still trying
        ST_REMOTE_PROCEDURE_ERROR = 9,         ///< 0x40
        ST_INCOMPATIBLE_DESTINATION = 10,      ///< 0x41
        ST_CONNECTION_REJECTED = 11,           ///< 0x42 connection rejected by the SME
        ST_NOT_OBTAINABLE = 12,                ///< 0x43
        ST_NO_INTERWORKING = 13,               ///< 0x45 no interworking available
        ST_VALIDITY_PERIOD_EXPIRED = 14,       ///< 0x46
        ST_DELETED_BY_ORIGINATING_SME = 15,    ///< 0x47
        ST_DELETED_BY_ADMINISTRATION = 16,     ///< 0x48 deleted by the service centre's administration
        ST_MESSAGE_DOES_NOT_EXIST = 17,        ///< 0x49
        ST_UNKNOWN = 18                        ///< every other octet
    };
};

} // namespace Encoding

#endif
