# SPDX-License-Identifier: MIT
"""The report's text between its tables."""

TABLE = """
How many times as fast vsurf is as each library: the geometric mean of all sizes and surfaces, and in brackets the
lowest and the highest. Bold figures are below 1: the library is faster. A dash means that the library does not do
this work. Adjusted exports count too, although neither library adjusts. *Hot* is with picture and surface in the
caches, *cold* without, as in a player.
"""
MEASURED = """
One thread, one process. The contenders of a group run interleaved in random order, and the fastest repetition counts.
They are

- vsurf on the instruction set that it selects on this machine,
- the nearest calls of libyuv and libswscale, the *peers*,
- a *roof*: a loop that reads and writes the same bytes without arithmetic, with ordinary or non-temporal stores,
  whichever is faster.

*Hot* uses the same picture and surface again and again. *Cold* goes through a ring of pictures and surfaces that is
larger than the last-level cache.

Surfaces have four kinds of addresses: base and pitch at multiples of 64 bytes (*64*); the natural pitch, which is a
line or, where that is a multiple of 64, 16 bytes more (*natural*); the base 8 bytes (*base8*) or one pixel (*pixel*)
past a multiple of 64, and a pitch that is one. Peers write to the same surfaces. Sizes are those of the source
picture or, with subpictures, of the region.

Before the measurements, `vsurf_bench --check` compares every peer's picture with the library's, and the bytes that
every roof writes with those that the library writes, on every kind of surface. On surfaces at multiples of 64, at
720x576 and 1920x1080, each instruction set is measured, also of the peers; elsewhere only the best one of each, and
of plain copies all of libyuv's.
"""
DETAILS = """
The tables show microseconds a picture on a surface at multiples of 64 and, after the slash, at the natural pitch. In
brackets is the speed over the best peer, above 1 where vsurf is faster, or, where no library does the work, the share
of the roof's speed. Adjusted exports are compared with the peers of their plain form. *Of roof* and *time vs* are
geometric means of the line. `bench/run.sh --plots DIR` draws every cell.
"""
FAMILY_NOTES = {
    "planar loaders": """
- No peer writes the 664 and 655 layouts; the figure is their call for 565. The layouts share their code; except for
  565 they are measured only where every instruction set is.
- `loadimage_yuy2` leaves holes: it writes 7/8 of the surface, its peers all of it. For a complete picture call
  `vsurf_show` or `loadimage_yuy2_ajust`.
- `loadimage_yv12` does not copy the picture. Some of its lines are replaced by later ones; its roof counts the bytes
  that remain, 1.25 a pixel, where its peers move 1.5. To copy a picture, call `vsurf_show` or
  copy its planes.
- No peer halves the width into YUY2 in one call: libyuv's figure is two calls.
""",
    "packed loaders": """
- libyuv writes RGB32 from YUY2 in one call. For RGB24 and RGB16 it needs two, through RGB32 (*-argb*) or planes
  (*-i420*); the intermediate picture is allocated beforehand. Of the four 16-bit layouts 565 is measured.
- `LoadYUY2_YUY2` replaces the chroma of every second line; its peers copy, and so does the roof.
""",
    "plane enlargers": """
- The smallest picture is 352x288, since 360 is not a whole number of blocks of 16. The adjusted forms are made for
  planes without gaps; on others they move as many bytes, and the picture is sheared. At 720x576 the chroma planes,
  360 wide, take the 2X2 form's path for widths that are not whole blocks.
- Peers are bilinear, which places the new samples a quarter further out and weighs their neighbours 3 to 1: libyuv's
  `ScalePlane`, plane by plane, and libswscale's `SWS_BILINEAR` (*swscale*) and `SWS_FAST_BILINEAR` (*swscale-fast*),
  with planes as grey pictures.
""",
    "enlarged loaders": """
- libyuv's figures are two steps, for YUY2 sources three: all planes scaled bilinearly into an intermediate picture,
  allocated beforehand, then converted. libswscale does both at once, `SWS_BILINEAR` (*swscale*) or
  `SWS_FAST_BILINEAR` (*swscale-fast*). `strech_picture_1X2_yuy2_ajust` computes four taps where its peers compute
  two.
- `strech_opt_yuy2_ajust` has no peer. *-edges* is noise: {band_edges_share} of the groups between the ends of a line
  differ enough to be searched for an edge. *-natural* is a picture of smooth shading with a disc, slanted bars and a
  faint grain, in which {band_natural_share} do (luma, 720x576).
""",
    "mixers": """
- Each mixer is measured with three alphas. *-clear* is 0 everywhere. *-subtitle* is two lines of text with smooth
  edges, in {subtitle_pixels} of the pixels and {subtitle_blocks} of the blocks of 16 (720x576). *-random* is any of 0
  to 16 for each pixel.
- The interlaced mixers (*_i*) double a field of half the region's height. Of the four 16-bit layouts 565 is measured.
  The time includes filling the record before each call.
- *Time vs loader* compares with the adjusted loader of the same surface: `loadimage_*_ajust`, and for the interlaced
  ones the loader that doubles the lines of the same field, `strech_picture_1X2_*`, which computes four taps into
  YUY2. `mix_ayv12_yv12_p` and `_i` adjust nothing, but are compared with the adjusted loaders, too, since
  `loadimage_yv12` is no copy. The roof shows how far they are from a copy.
- The roof reads the picture and the alpha plane, for *-random* also the subpicture's other planes; a loader reads
  only the picture. Cold, the subpicture is as cold as the picture, although a player shows one for seconds.
- The peers' figures are libyuv's `I420Blend` into an intermediate picture, allocated beforehand, then its conversion.
  `ScalePlane` doubles fields first and halves the width last. They adjust nothing, blend one line of the subpicture's
  chroma for two of the picture, and take an alpha of 0 to 255, prepared for them. Their time does not depend on
  alpha: it is measured once and compared with all three.
""",
    "subpictures": """
- Conversions are measured with a drawing without key (*-opaque*), one that is all key (*-transparent*) and two lines
  of text on key (*-subtitle*); the last two are compared with the first. Their roof reads the drawing, and for
  *-opaque* writes the planes. Peers convert everything: libyuv's `ARGBToI422`, after an expansion of RGB24 and RGB16.
- `Restore_*` and `load_subpicture_alpha_*` have no peers. Neither have the drawers, `load_subpicture_yuy2_*`, which
  are compared with the loader of the same surface: it reads 1.5 bytes a pixel where they read 3.
- Fills are compared with libyuv's `ARGBRect` and `SetPlane` and the C library's `memset`, with a colour whose bytes
  are equal, the only kind that all of them can fill with. `RelaceMaskWithColorKey` reads two bytes for each that it
  writes.
""",
}

SHOW = """
`vsurf_show()` with a picture of one format, size and encoding on a surface of another. A name has both formats; *-709*
and *-full* are BT.709 and full range. *-subtitle* blends two lines of text, each a bitmap of B, G, R and an 8-bit
alpha; *-coverage* the same as one colour and an 8-bit coverage. In the picture both are compared with the peers of the
plain one, which blend nothing. Only the best instruction set is measured. The figures are those of all sizes and kinds
of surface: the mean, and in brackets the lowest and the highest. In the second table a bold mean is above what it is to
be.
"""

# The shares that the notes above name, as they were measured.
SHARES = ("band_edges_share", "band_natural_share", "subtitle_pixels", "subtitle_blocks")
