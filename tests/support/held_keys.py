"""Keys held on the keyboard itself, as by fingers: synthetic releases through the XTEST keyboard
do not lift them, so a paste that is disturbed by held modifiers shows."""

import ctypes
import os

KEYCODES = {"super": 133, "shift": 50, "v": 55, "x": 53, "return": 36, "down": 116}


class _DeviceInfo(ctypes.Structure):
    _fields_ = [("id", ctypes.c_ulong), ("type", ctypes.c_ulong), ("name", ctypes.c_char_p),
                ("classes", ctypes.c_int), ("use", ctypes.c_int), ("info", ctypes.c_void_p)]


class HeldKeys:
    def __init__(self, environment):
        self._x11 = ctypes.CDLL("libX11.so.6")
        self._xi = ctypes.CDLL("libXi.so.6")
        self._xtst = ctypes.CDLL("libXtst.so.6")
        self._x11.XOpenDisplay.restype = ctypes.c_void_p
        self._xi.XListInputDevices.restype = ctypes.POINTER(_DeviceInfo)
        self._xi.XOpenDevice.restype = ctypes.c_void_p
        self._display = ctypes.c_void_p(
            self._x11.XOpenDisplay(environment["DISPLAY"].encode()))
        count = ctypes.c_int()
        devices = self._xi.XListInputDevices(self._display, ctypes.byref(count))
        keyboards = [devices[i].id for i in range(count.value)
                     if b"keyboard" in devices[i].name.lower()
                     and b"XTEST" not in devices[i].name
                     and b"Virtual core" not in devices[i].name]
        if not keyboards:
            raise RuntimeError(f"no keyboard device on {os.environ.get('DISPLAY')}")
        self._device = ctypes.c_void_p(
            self._xi.XOpenDevice(self._display, ctypes.c_ulong(keyboards[0])))

    def _key(self, name, is_press):
        self._xtst.XTestFakeDeviceKeyEvent(self._display, self._device, KEYCODES[name], is_press,
                                           None, 0, ctypes.c_ulong(0))
        self._x11.XSync(self._display, 0)

    def press(self, *names):
        for name in names:
            self._key(name, 1)

    def release(self, *names):
        for name in reversed(names):
            self._key(name, 0)

    def tap(self, name):
        self.press(name)
        self.release(name)
