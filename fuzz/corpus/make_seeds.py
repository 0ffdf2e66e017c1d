#!/usr/bin/env python3
"""Writes the fuzzers' seed inputs into fuzz/corpus/<target>/. Each seed follows the input layout
described at the top of its fuzzer's source. Usage: fuzz/corpus/make_seeds.py"""
import os
import struct
import sys

HERE = os.path.dirname(os.path.abspath(__file__))

# Stream operations (fuzz/engine/stream_fuzzer.cpp).
SIZE, REQUEST, ZOOM, SENSOR, FORMAT, STRIDE, HOLD = 1, 2, 4, 8, 16, 32, 64
INIT, DEINIT, SCENE, HIDE = 0xE0, 0xE8, 0xF0, 0xF8
# Indices into the stream fuzzer's tables.
SIZE_INDEX = {"1x1": 0, "2x2": 1, "3x3": 2, "42x42": 8, "43x41": 9, "64x48": 13, "160x120": 16,
              "320x240": 18, "640x480": 21, "810x600": 24, "1280x720": 25, "0x0": 27, "64x10": 32}
ZOOM_INDEX = {1.0: 0, 2.0: 1, 10.0: 2, 0.0: 3, "nan": 4, "inf": 5, "-inf": 6, 11.0: 7}
FORMAT_INDEX = {2: 0, 3: 1, 7: 2, 0: 6, 8: 11, -1: 12}
SENSOR_INDEX = {-1: 0, 0: 1, 1: 2}


def touch_shape(shape=0):
    """A frame with a touch on the centre of the given scene shape."""
    return bytes([REQUEST, 1, 0, shape])


def frames(n, flags=0):
    return bytes([flags]) * n


def stream_seeds():
    seeds = {}
    seeds["touch_then_motion"] = b"\x00" + touch_shape() + frames(30)
    seeds["zoom_steps"] = (b"\x00" + touch_shape() + frames(6)
                           + bytes([ZOOM, ZOOM_INDEX[2.0]]) + frames(3)
                           + bytes([ZOOM, ZOOM_INDEX[10.0]]) + frames(3)
                           + bytes([ZOOM, ZOOM_INDEX["nan"]]) + bytes([ZOOM, ZOOM_INDEX[0.0]])
                           + bytes([ZOOM, ZOOM_INDEX[11.0]]) + bytes([ZOOM, ZOOM_INDEX[1.0]]) + frames(4))
    seeds["size_changes"] = (b"\x00" + bytes([SIZE | REQUEST, SIZE_INDEX["320x240"], 1, 0, 0]) + frames(6)
                             + bytes([SIZE | SENSOR, SIZE_INDEX["1280x720"], SENSOR_INDEX[1]])
                             + bytes([SIZE, SIZE_INDEX["42x42"]]) + frames(3)
                             + bytes([SIZE, SIZE_INDEX["1x1"]]) + bytes([SIZE, SIZE_INDEX["0x0"]])
                             + bytes([SIZE | REQUEST, SIZE_INDEX["43x41"], 1, 0, 0]) + frames(4))
    seeds["lifecycle"] = (b"\x01" + touch_shape() + frames(3) + bytes([DEINIT]) + frames(2) + bytes([INIT])
                          + bytes([FORMAT, FORMAT_INDEX[0]]) + bytes([FORMAT, FORMAT_INDEX[7]])
                          + bytes([STRIDE, 1]) + bytes([REQUEST, 1, 2, 0, 1])  # touch at INT_MIN, INT_MAX
                          + touch_shape() + frames(3) + bytes([DEINIT, DEINIT, INIT, INIT]) + frames(2))
    # Two shapes: a fast one that leaves the frame and a slow one; the fast one is touched.
    scene = (bytes([SCENE, 90, 120, 140, 8, 7, 2])
             + bytes([1, 220, 40, 220]) + struct.pack("<HHH", 1000, 2000, 500) + bytes([120, 0])
             + bytes([0, 30, 200, 60]) + struct.pack("<HHH", 3000, 1500, 700) + bytes([4, 4]))
    seeds["fast_object_lost"] = b"\x00" + bytes([SIZE, SIZE_INDEX["160x120"]]) + scene + touch_shape(0) + frames(50)
    # Hidden long enough for the block search (100 lost frames), shown again, then hidden for good.
    seeds["lost_for_long"] = (b"\x00" + touch_shape() + frames(8) + bytes([HIDE]) + frames(104) + bytes([HIDE])
                              + frames(8) + bytes([HIDE]) + frames(40))
    seeds["tiny_frames"] = (b"\x00" + bytes([SIZE | REQUEST, SIZE_INDEX["2x2"], 1, 0, 0]) + frames(2)
                            + bytes([SIZE | REQUEST, SIZE_INDEX["3x3"], 1, 0, 0]) + frames(2)
                            + bytes([SIZE | REQUEST, SIZE_INDEX["64x10"], 1, 0, 0]) + frames(2))
    return seeds


def segmentation_seeds():
    def image(w, h, obj):
        luma = bytearray([0x40] * (w * h))
        chroma = bytearray([0x80] * (w * (h // 2)))
        l, t, r, b = obj
        for y in range(t, b):
            for x in range(l, r):
                luma[y * w + x] = 0xC0
                if y // 2 < h // 2:
                    chroma[(y // 2) * w + (x & ~1)] = 0x20
        return bytes(luma + chroma)

    def coord(v, side):
        return next(p for p in range(192) if p * (side + 12) // 192 - 6 == v)

    seeds = {}
    seeds["object_in_middle"] = bytes([2, 31, 23, coord(16, 32), coord(12, 24)]) + image(32, 24, (10, 8, 22, 16))
    # Working height 270 gives the search offset 5 with seeds off the image at negative coordinates.
    seeds["corner_offset5"] = (bytes([3, 39, 29]) + struct.pack("<H", 269)
                               + bytes([coord(2, 40), coord(2, 30)]) + image(40, 30, (0, 0, 12, 10)))
    seeds["uniform"] = bytes([2, 19, 19, coord(5, 20), coord(5, 20)]) + image(20, 20, (0, 0, 0, 0))
    seeds["one_pixel"] = bytes([0, 0, 0, coord(0, 1), coord(0, 1), 0x55])
    seeds["touch_int_min"] = bytes([2, 15, 15, 192, 0, 192, 1]) + image(16, 16, (4, 4, 10, 10))
    # 320 x 240 painted: a wide flat object with noise 3, touched in its middle.
    seeds["painted_wide"] = (bytes([4]) + struct.pack("<HH", 319, 239) + bytes([coord(160, 320), coord(80, 240)])
                             + bytes([100, 128, 128, 3, 1]) + struct.pack("<HHHH", 10, 60, 299, 99)
                             + bytes([200, 60, 190]))
    return seeds


def weights_blob(l, t, w, h, v):
    return bytes([0, l, t, w, h, v])


def object_size_seeds():
    seeds = {}
    # 64 x 64, working height 270 (sizes 20..100), both directions, rectangle inside, threshold 100.
    head = bytes([63, 63]) + struct.pack("<H", 269)
    seeds["grow_inside"] = head + bytes([6, 0, 20, 20, 30, 30, 100]) + weights_blob(14, 14, 40, 40, 200)
    seeds["larger_than_image"] = head + bytes([2, 1, 10, 12, 1, 0, 50]) + weights_blob(0, 0, 64, 64, 90)
    seeds["estimate_with_history"] = (head + bytes([1, 0, 16, 16, 32, 32, 0])
                                      + bytes([2, 3, 1]) + bytes([0, 10, 10, 30, 30]) * 3
                                      + weights_blob(12, 12, 40, 40, 255))
    seeds["inverted"] = head + bytes([4, 2]) + struct.pack("<HHHH", 150, 60, 40, 100) + bytes([100, 1]) + bytes(range(256))
    return seeds


def mean_shift_seeds():
    seeds = {}
    seeds["track_toward_blob"] = bytes([63, 47, 0, 0, 10, 10, 20, 20, 0]) + weights_blob(30, 20, 12, 12, 255)
    seeds["track_larger_than_image"] = bytes([39, 29, 0, 1, 5, 5, 0, 1, 0]) + weights_blob(0, 0, 40, 30, 10)
    seeds["wide_from_corner"] = (bytes([63, 63, 1, 0]) + struct.pack("<H", 40) + bytes([0])
                                 + struct.pack("<H", 40) + bytes([36, 36, 0]) + weights_blob(40, 40, 10, 10, 200))
    seeds["wide_small_image"] = (bytes([29, 19, 1, 0]) + struct.pack("<H", 33) + bytes([0])
                                 + struct.pack("<H", 30) + bytes([20, 20, 0]) + weights_blob(0, 0, 30, 20, 7))
    return seeds


def ncc_seeds():
    w, h, tw, th = 32, 24, 8, 6
    head = bytes([w - 1, h - 1, tw, th])
    luma = bytes((x * 7 + y * 13) % 256 for y in range(h) for x in range(w))
    tmpl = bytes(luma[(10 + y) * w + 12 + x] for y in range(th) for x in range(tw))
    seeds = {}
    seeds["identical_patch"] = head + bytes([0, 0, 12, 10, 8, 6]) + luma + tmpl
    seeds["no_template"] = head + bytes([1, 0, 12, 10, 8, 6]) + luma + tmpl
    seeds["rect_larger"] = head + bytes([0, 1, 4, 4, 0, 0]) + luma + tmpl
    seeds["far_outside"] = head + bytes([0, 3, 0, 0, 1, 1]) + luma + tmpl
    return seeds


def main():
    if len(sys.argv) > 1:
        print(__doc__)
        return 0
    for target, seeds in (("stream", stream_seeds()), ("segmentation", segmentation_seeds()),
                          ("object_size", object_size_seeds()), ("mean_shift", mean_shift_seeds()),
                          ("ncc", ncc_seeds())):
        folder = os.path.join(HERE, target)
        os.makedirs(folder, exist_ok=True)
        for name, data in seeds.items():
            with open(os.path.join(folder, name), "wb") as f:
                f.write(data)
    return 0


if __name__ == "__main__":
    sys.exit(main())
