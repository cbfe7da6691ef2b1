// SPDX-License-Identifier: MIT
// Every export once more: its type by the record of its kernel, its name by the index. A declaration that differs from
// the header's does not compile.
#ifdef __cplusplus
extern "C" {
#endif

typedef void Setter(void*);
typedef void Picture(void*, void*, void*, void*, int, int, int, int, ajust_contrast_info*);

typedef void PlaneEnlargement(unsigned char*, unsigned char*, int, int, int, int);
typedef void AdjustedPlaneEnlargement(unsigned char*, unsigned char*, int, int, int, int, ajust_contrast_info*, int);
typedef void BandEnlargement(tagVideoFrame*, int, int, unsigned char*, int, ajust_contrast_info*);
typedef void PackedEnlargement(void*, void*, void*, void*, int, int, int);
typedef void AdjustedPackedEnlargement(void*, void*, void*, void*, int, int, int, ajust_contrast_info*);
typedef void Job(MIX_INFO*);
typedef void Fill(unsigned int, void*, int, int, int, int);
typedef void MaskReplacement(unsigned char*, unsigned char*, unsigned int, unsigned int, int, int, int);

#define EXPORT(name, call) VSURF_API call name;
EXPORT(get_contrast_data, Setter)
#include "exports.inc"
#undef EXPORT

#ifdef __cplusplus
}
#endif
