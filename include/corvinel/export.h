/* Linkage and visibility of the module's C interface. */
#ifndef CORVINEL_EXPORT_H
#define CORVINEL_EXPORT_H

#ifdef __cplusplus
#define CORVINEL_EXTERN_C_BEGIN extern "C" {
#define CORVINEL_EXTERN_C_END }
#else
#define CORVINEL_EXTERN_C_BEGIN
#define CORVINEL_EXTERN_C_END
#endif

/* Every name the host may look up in the module carries CORVINEL_API; all
   other symbols are hidden. */
#define CORVINEL_API __attribute__((visibility("default")))

/* Compile-time checks of the record layouts, in C and C++ alike. */
#ifdef __cplusplus
#define CORVINEL_LAYOUT_CHECK(condition) static_assert(condition, #condition)
#else
#define CORVINEL_LAYOUT_CHECK(condition) _Static_assert(condition, #condition)
#endif

#endif
