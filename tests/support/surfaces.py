"""What a Wayland client says to its compositor about its surfaces, read from the log that it writes
with WAYLAND_DEBUG=1: compositors tell nobody of surfaces in layers, nor when they were drawn."""

import re

_LINE = re.compile(r"\[\s*(\d+)\.(\d+)\]\s+(?:\{[^}]*\}\s*)?(->)?\s*(\w+)[@#](\d+)\.(\w+)\((.*)\)")
_OBJECT = re.compile(r"[@#](\d+)")


class Surface:
    def __init__(self):
        self.name = None  # a title, or the name of a surface in a layer
        self.is_layer = False
        self.size = (0, 0)  # of one in a layer
        self.is_shown = False
        self.has_keyboard = False
        self.drawn = []  # microseconds at which it showed new content
        self.hidden = []
        self._is_attached = None

    def commit(self, time):
        if self._is_attached:
            self.drawn.append(time)
            self.is_shown = True
        elif self._is_attached is False:
            self.hide(time)
        self._is_attached = None

    def attach(self, has_content):
        self._is_attached = has_content

    def hide(self, time):
        if self.is_shown:
            self.hidden.append(time)
        self.is_shown = False


class Surfaces:
    """Takes the log line by line; `time` of the latest is in microseconds of the wall clock, as far
    as 32 bits hold them."""

    def __init__(self):
        self._surfaces = {}
        self._roles = {}  # from a surface's other objects
        self.ended = []

    def named(self, name):
        """The surfaces of that name, those that are gone too."""
        return [surface for surface in [*self.ended, *self._surfaces.values()]
                if surface.name == name]

    def layer(self, name):
        """The shown surface of that name in a layer; None when there is none."""
        # Asked while the log is read on another thread.
        return next((surface for surface in list(self._surfaces.values())
                     if surface.is_layer and surface.is_shown and surface.name == name), None)

    def read(self, line):
        """Whether the line was of that log."""
        found = _LINE.search(line)
        if not found:
            return False
        milliseconds, rest, _, interface, number, message, words = found.groups()
        time = int(milliseconds) * 1000 + int(rest)
        handle = getattr(self, f"_{interface}", None)
        if handle:
            handle(int(number), message, words, time)
        return True

    def _object(self, words, place=0):
        told = _OBJECT.search(words.split(", ")[place])
        return int(told[1]) if told else None

    def _wl_compositor(self, _, message, words, _time):
        if message == "create_surface":
            number = self._object(words)
            self.forget(number)
            self._surfaces[number] = Surface()

    def forget(self, number):
        surface = self._surfaces.pop(number, None)
        if surface:
            self.ended.append(surface)

    def _wl_surface(self, number, message, words, time):
        surface = self._surfaces.get(number)
        if not surface:
            return
        if message == "attach":
            surface.attach(not words.startswith("nil"))
        elif message == "commit":
            surface.commit(time)
        elif message == "destroy":
            surface.hide(time)

    def _xdg_wm_base(self, _, message, words, _time):
        if message == "get_xdg_surface":
            self._roles["xdg_surface", self._object(words)] = self._object(words, 1)

    def _xdg_surface(self, number, message, words, _time):
        if message == "get_toplevel":
            self._roles["xdg_toplevel", self._object(words)] = self._roles.get(
                ("xdg_surface", number))

    def _xdg_toplevel(self, number, message, words, time):
        surface = self._surfaces.get(self._roles.get(("xdg_toplevel", number)))
        if surface and message == "set_title":
            surface.name = words.strip('"')
        elif surface and message == "destroy":
            surface.hide(time)

    def _zwlr_layer_shell_v1(self, _, message, words, _time):
        if message == "get_layer_surface":
            surface = self._surfaces.get(self._object(words, 1))
            if surface:
                surface.name = words.rsplit(", ", 1)[1].strip('"')
                surface.is_layer = True
                self._roles["layer", self._object(words)] = self._object(words, 1)

    def _zwlr_layer_surface_v1(self, number, message, words, time):
        surface = self._surfaces.get(self._roles.get(("layer", number)))
        if surface and message == "destroy":
            surface.hide(time)
        elif surface and message == "set_size":
            surface.size = tuple(map(int, words.split(", ")))

    def _wl_keyboard(self, _, message, words, _time):
        if message in ("enter", "leave"):
            surface = self._surfaces.get(self._object(words, 1))
            if surface:
                surface.has_keyboard = message == "enter"
