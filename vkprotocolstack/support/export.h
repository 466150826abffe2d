#ifndef VKPROTOCOLSTACK_SUPPORT_EXPORT_H
#define VKPROTOCOLSTACK_SUPPORT_EXPORT_H

/// Default visibility, also in a program or library that is built with hidden visibility: this is what lets a client's
/// own definition of a support function take the place of the default one.
#define VK_API __attribute__((visibility("default")))

#endif
