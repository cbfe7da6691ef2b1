// SPDX-License-Identifier: MIT
// Every export once more: its type by family, its name by the index. A declaration that differs from the header's does
// not compile.
#ifdef __cplusplus
extern "C" {
#endif

typedef void SETTER(void*);
typedef void LOADER(void*, void*, void*, void*, int, int, int, int, ajust_contrast_info*);
typedef LOADER PACKED_LOADER;
typedef void PLANE_ENLARGER(unsigned char*, unsigned char*, int, int, int, int);
typedef void ADJUSTED_PLANE_ENLARGER(unsigned char*, unsigned char*, int, int, int, int, ajust_contrast_info*, int);
typedef void BAND_ENLARGER(tagVideoFrame*, int, int, unsigned char*, int, ajust_contrast_info*);
typedef void PACKED_ENLARGER(void*, void*, void*, void*, int, int, int);
typedef void ADJUSTED_PACKED_ENLARGER(void*, void*, void*, void*, int, int, int, ajust_contrast_info*);
typedef void JOB(MIX_INFO*);
typedef void FILL(unsigned int, void*, int, int, int, int);
typedef void MASK(unsigned char*, unsigned char*, unsigned int, unsigned int, int, int, int);

#define EXPORT(name, family) VSURF_API family name;
EXPORT(get_contrast_data, SETTER)
#include "exports.inc"
#undef EXPORT

#ifdef __cplusplus
}
#endif
