// SPDX-License-Identifier: MIT
// Every export once more, by family. A declaration that differs from the header's does not compile.
#ifdef __cplusplus
extern "C" {
#endif

typedef void adjustment_setter(void*);
VSURF_API adjustment_setter get_contrast_data;

typedef void loader(void*, void*, void*, void*, int, int, int, int, ajust_contrast_info*);
VSURF_API loader loadimage_yv12, loadimage_yuy2, loadimage_rgb32, loadimage_rgb24, loadimage_rgb16;
VSURF_API loader loadimage_rgb32_ajust, loadimage_rgb24_ajust, loadimage_rgb16_ajust;
VSURF_API loader loadimage_yuy2_ajust, loadimage_yuy2_mono_ajust, loadimage_yv12_ajust;
VSURF_API loader loadimage_half_yuy2_ajust, loadimage_half_yv12_ajust;
VSURF_API loader LoadYUY2_YUY2, LoadYUY2_RGB32, LoadYUY2_RGB24, LoadYUY2_RGB16;
VSURF_API loader LoadYUY2_YUY2_adjust, LoadYUY2_RGB32_adjust, LoadYUY2_RGB24_adjust, LoadYUY2_RGB16_adjust;
VSURF_API loader strech_picture_2X2_yv12_ajust, strech_picture_1X2_yv12_ajust;
VSURF_API loader strech_picture_1X2_yuy2, strech_picture_1X2_yuy2_ajust;
VSURF_API loader strech_picture_2X2_yuy2, strech_picture_2X2_yuy2_ajust;
VSURF_API loader strech_picture_1X2_yuy2_ajust_rgb32, strech_picture_1X2_yuy2_ajust_rgb24,
    strech_picture_1X2_yuy2_ajust_rgb16;

typedef void plane_enlarger(unsigned char*, unsigned char*, int, int, int, int);
VSURF_API plane_enlarger strech_pic_2X2;
typedef void adjusting_plane_enlarger(unsigned char*, unsigned char*, int, int, int, int, ajust_contrast_info*, int);
VSURF_API adjusting_plane_enlarger strech_pic_2X2_adjust, strech_pic_1X2_adjust;
typedef void band_enlarger(tagVideoFrame*, int, int, unsigned char*, int, ajust_contrast_info*);
VSURF_API band_enlarger strech_opt_yuy2_ajust;
typedef void packed_enlarger(void*, void*, void*, void*, int, int, int);
VSURF_API packed_enlarger yuy2_strech_picture_2X2_yuy2;
typedef void adjusting_packed_enlarger(void*, void*, void*, void*, int, int, int, ajust_contrast_info*);
VSURF_API adjusting_packed_enlarger yuy2_strech_picture_2X2_yuy2_ajust;

typedef void subpicture_job(MIX_INFO*);
VSURF_API subpicture_job Convert_RGB32_To_AYUY2, Convert_RGB24_To_AYUY2, Convert_RGB16_565_To_AYUY2;
VSURF_API subpicture_job Restore_RGB32_To_Alpha, Restore_RGB24_To_Alpha, Restore_RGB16_565_To_Alpha;
VSURF_API subpicture_job load_subpicture_alpha_rgb32, load_subpicture_alpha_rgb24, load_subpicture_alpha_rgb16_565;
VSURF_API subpicture_job load_subpicture_yuy2_rgb32, load_subpicture_yuy2_rgb24, load_subpicture_yuy2_rgb16;
VSURF_API subpicture_job load_subpicture_yuy2_rgb32_ajust, load_subpicture_yuy2_rgb24_ajust,
    load_subpicture_yuy2_rgb16_ajust;
VSURF_API subpicture_job mix_ayuy2_yuy2_p_ajust, mix_ayuy2_half_yuy2_p_ajust, mix_ayuy2_yuy2_i_ajust;
VSURF_API subpicture_job mix_ayuy2_rgb32_p_ajust, mix_ayuy2_rgb24_p_ajust, mix_ayuy2_rgb16_p_ajust;
VSURF_API subpicture_job mix_ayuy2_rgb32_i_ajust, mix_ayuy2_rgb24_i_ajust, mix_ayuy2_rgb16_i_ajust;
VSURF_API subpicture_job mix_ayv12_yv12_p, mix_ayv12_yv12_p_ajust, mix_ayv12_yv12_i;

typedef void colour_key_fill(unsigned int, void*, int, int, int, int);
VSURF_API colour_key_fill LoadColorKeyRgb32, LoadColorKeyRgb24, LoadColorKeyRgb16;
typedef void mask_replacement(unsigned char*, unsigned char*, unsigned int, unsigned int, int, int, int);
VSURF_API mask_replacement RelaceMaskWithColorKey;

#ifdef __cplusplus
}
#endif
