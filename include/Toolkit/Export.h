/// @file
/// What the support library and its templates show to other libraries.
#ifndef TOOLKIT_EXPORT_H
#define TOOLKIT_EXPORT_H

/// Marks a name as part of the interface; everything else is compiled with hidden visibility.
#define TOOLKIT_API __attribute__((visibility("default")))

#endif
