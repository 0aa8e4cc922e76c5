"""The sound that an alarm makes by itself: two soft bell tones."""
import array
import math
import sys
import wave


def make(path):
    rate, length = 22050, 1.3
    # Start in seconds and pitch in hertz: a fourth upwards, like a small chime.
    tones = ((0.0, 783.99), (0.28, 1046.5))
    samples = array.array("h")
    for index in range(int(rate * length)):
        value = 0.0
        for start, pitch in tones:
            t = index / rate - start
            if t < 0:
                continue
            attack = min(t / 0.006, 1.0)
            for harmonic, strength, fade in ((1, 1.0, 4.0), (2, 0.35, 6.5), (3, 0.12, 9.0), (4.2, 0.06, 14.0)):
                value += attack * strength * math.exp(-fade * t) * math.sin(2 * math.pi * pitch * harmonic * t)
        end = min((length - index / rate) / 0.08, 1.0)
        samples.append(int(max(-1.0, min(1.0, 0.42 * value * end)) * 32767))
    if sys.byteorder == "big":
        samples.byteswap()
    with wave.open(str(path), "wb") as file:
        file.setnchannels(1)
        file.setsampwidth(2)
        file.setframerate(rate)
        file.writeframes(samples.tobytes())
