/// @file
/// What libQX_Messages shows to its host.
#ifndef MESSAGES_EXPORT_H
#define MESSAGES_EXPORT_H

/// Marks a name as part of the interface; everything else is compiled with hidden visibility.
#define MESSAGES_API __attribute__((visibility("default")))

#endif
