"""A copy in another application is in the history."""

import time

from journey import Journey, made_in, pasteboard


class CopyJourney(Journey):
    @made_in()
    def test_a_copy_is_recorded_with_the_application_it_came_from(self):
        self.editor("gtk", "a reed in the wind", "--select")
        self.app.key("ctrl+c")
        self.app.wait_for_clip("a reed in the wind")
        self.editor("qt", "a bittern booms", "--select")
        self.app.key("ctrl+c")
        self.app.wait_for_clip("a bittern booms")
        names = [name for _, name in self.app.clips("strValue, applicationName")]
        self.assertEqual([name.lower() for name in names], ["qt_editor", "editor"])

    @made_in()
    def test_a_burst_is_recorded_whole_and_in_order(self):
        self.owner("burst", 100, 5)
        self.app.wait_for_clip("burst copy 99")
        self.assertEqual(self.app.clips(),
                         [f"burst copy {i}" for i in reversed(range(100))]
                         + ["before the burst"])

    @made_in()
    def test_a_dead_owners_copy_stays_recorded_and_pasteable(self):
        self.owner("brief", 50, "gone but not forgotten").wait(5)
        self.app.wait_for_clip("gone but not forgotten")
        self.wait_for(lambda: pasteboard(self.desktop) == "gone but not forgotten",
                      "the adopted text")

    @made_in()
    def test_an_owner_that_hangs_disturbs_nobody(self):
        self.owner("hang")
        started = time.monotonic()
        self.app.open_history()
        self.assertLess(time.monotonic() - started, 1.0)
        self.app.close()
        self.copy("after")
        self.assertEqual(self.app.clips(), ["after"])

    @made_in()
    def test_a_secret_is_not_recorded(self):
        self.owner("secret", "hunter2")
        self.copy("after")
        self.assertEqual(self.app.clips(), ["after"])
        self.assertNotIn("hunter2", "\n".join(self.app.log))
