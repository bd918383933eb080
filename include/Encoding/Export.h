/// @file
/// What libQX_Encoding shows to its host.
#ifndef ENCODING_EXPORT_H
#define ENCODING_EXPORT_H

/// Marks a name as part of the interface; everything else is compiled with hidden visibility.
#define ENCODING_API __attribute__((visibility("default")))

#endif
