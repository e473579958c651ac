"""The applications that are tried, and how each is started."""

from editors import Editor, Emacs, PasswordSafe, RichEditor, Spreadsheet, Vim
from pictures import SCREENSHOOTER, Neighbour, PaintProgram, Screenshooter
from programs import Browser, FileManager, Firefox, Terminal

MOUSEPAD = ["mousepad", "--disable-server"]
CHROMIUM = ["chromium", "--no-sandbox", "--disable-gpu", "--no-first-run", "--disable-quic",
            "--disable-background-networking", "--disable-component-update", "--disable-sync",
            "--password-store=basic", "--user-data-dir=/tmp/chromium"]
OFFICE = ["libreoffice", "--norestore", "--nologo", "--nofirststartwizard"]

APPLICATIONS = [
    Editor("mousepad", MOUSEPAD, "mousepad", "Mousepad"),
    Editor("gedit", ["gedit", "--standalone"], "gedit"),
    Editor("kate", ["kate", "--new"], "kate", "Kate"),
    Editor("featherpad", ["featherpad", "--standalone"], "featherpad", "FeatherPad"),
    Neighbour("xfsettingsd beside mousepad", MOUSEPAD, "mousepad", "Mousepad",
              beside=[["xfsettingsd", "--no-daemon"]]),
    Neighbour("clipman beside mousepad", MOUSEPAD, "mousepad", "Mousepad",
              beside=[["xfce4-clipman"]]),
    Neighbour("parcellite beside mousepad", MOUSEPAD, "mousepad", "Mousepad",
              beside=[["parcellite", "--no-icon"]]),
    Terminal("xterm", ["xterm", "-e"], "xterm",
             absent=dict(Terminal.absent, copy_text="selection", close_after_copy="selection")),
    Terminal("xfce4-terminal", ["xfce4-terminal", "--disable-server", "--hide-menubar", "-x"],
             "xfce4-terminal", "Xfce Terminal"),
    Terminal("konsole", ["konsole", "--hide-menubar", "--hide-tabbar", "-e"], "konsole",
             "Konsole", first_word=(22, 48)),
    Terminal("kitty", ["kitty"], "kitty"),
    Terminal("urxvt", ["urxvt", "-e"], "urxvt", "Rxvt Color Unicode Terminal",
             copy_keys=("ctrl+alt+c",)),
    FileManager("thunar", ["thunar"], "thunar", "Thunar File Manager"),
    FileManager("pcmanfm-qt", ["pcmanfm-qt"], "pcmanfm-qt", "PCManFM-Qt File Manager"),
    FileManager("dolphin", ["dolphin", "--new-window"], "dolphin", "Dolphin"),
    FileManager("nautilus", ["nautilus", "--new-window"], "nautilus", "Files"),
    Firefox("Firefox ESR", [], "firefox"),
    Browser("Chromium", CHROMIUM, "chromium", "Chromium Web Browser"),
    RichEditor("LibreOffice Writer", [*OFFICE, "--writer"], "libreoffice"),
    Spreadsheet("LibreOffice Calc", [*OFFICE, "--calc"], "libreoffice"),
    Vim("GVim", ["gvim", "-f", "-u", "NONE"], "gvim"),
    Emacs("Emacs", ["emacs", "-Q"], "emacs", "Emacs (GUI)"),
    PasswordSafe("KeePassXC", ["keepassxc"], "keepassxc"),
    PaintProgram("GIMP", ["gimp", "--no-splash", "--new-instance"], "gimp",
                 "GNU Image Manipulation Program"),
    Screenshooter("xfce4-screenshooter", SCREENSHOOTER, ""),
]
