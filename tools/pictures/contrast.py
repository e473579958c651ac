"""How well texts can be read on a picture of the screen."""

from collections import Counter


class Picture:
    """A binary portable pixmap of 8 bits a channel."""

    def __init__(self, ppm):
        fields = ppm.split(None, 4)
        self.width, self.height = int(fields[1]), int(fields[2])
        self.pixels = ppm[len(ppm) - 3 * self.width * self.height:]

    def colours(self, box):
        """How often each colour occurs in (x, y, width, height)."""
        x, y, width, height = box
        left, right = max(0, x), min(self.width, x + width)
        counted = Counter()
        for row in range(max(0, y), min(self.height, y + height)):
            line = self.pixels[3 * (row * self.width + left):3 * (row * self.width + right)]
            counted.update(line[i:i + 3] for i in range(0, len(line), 3))
        return counted


def luminance(colour):
    red, green, blue = (part / 255 / 12.92 if part <= 10 else ((part / 255 + 0.055) / 1.055) ** 2.4
                        for part in colour)
    return 0.2126 * red + 0.7152 * green + 0.0722 * blue


def ratio(first, second):
    dark, light = sorted((luminance(first), luminance(second)))
    return (light + 0.05) / (dark + 0.05)


def contrast_of_writing(picture, box):
    """The contrast of what is written in `box` to what lies behind it: the commonest colour is the
    ground, and of the others the one that stands out most is the writing, because the edges of a
    letter are blends of the two. None when nothing is written there."""
    counted = picture.colours(box)
    if len(counted) < 2:
        return None
    ground = counted.most_common(1)[0][0]
    return max(ratio(ground, colour) for colour in counted)
