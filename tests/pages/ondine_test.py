#!/usr/bin/python3
"""Drives the interactive pages in headless Chromium as a student does: clicks,
drags and keys on what the page shows, and reads the pixels of its canvases.

usage: ondine_test.py FOLDER-OF-THE-PAGES
"""

import cmath
import math
import os
import pathlib
import random
import sys
import unittest

from selenium import webdriver
from selenium.webdriver.chrome.service import Service
from selenium.webdriver.common.action_chains import ActionChains
from selenium.webdriver.common.by import By
from selenium.webdriver.common.keys import Keys

PAGES = pathlib.Path("Lib")

# The grey levels of a canvas, rows from the top.
GREYS = """
const canvas = document.getElementById(arguments[0]);
const pixels = canvas.getContext('2d').getImageData(0, 0, canvas.width, canvas.height).data;
return Array.from({length: canvas.width * canvas.height}, (_, i) => pixels[4 * i]);
"""


def start_browser():
    options = webdriver.ChromeOptions()
    options.add_argument("--headless=new")
    options.add_argument("--window-size=1200,1400")
    options.add_argument("--lang=en")
    options.add_argument("--disable-gpu")
    options.add_argument("--disable-dev-shm-usage")
    # Chromium runs as root only without its sandbox.
    if os.geteuid() == 0:
        options.add_argument("--no-sandbox")
    options.set_capability("goog:loggingPrefs", {"browser": "ALL"})
    options.binary_location = "/usr/bin/chromium"
    return webdriver.Chrome(service=Service("/usr/bin/chromedriver"), options=options)


class Page:
    """What holds of every page: the tests of a page are a test case of this."""

    @classmethod
    def setUpClass(cls):
        cls.browser = start_browser()

    @classmethod
    def tearDownClass(cls):
        cls.browser.quit()

    def setUp(self):
        self.browser.get("about:blank")
        self.browser.get((PAGES / self.name).resolve().as_uri())

    def tearDown(self):
        # Nothing may have been said on the console at the end. Reading the pixels draws an advice from the browser;
        # the page itself reads none.
        said = [line["message"] for line in self.browser.get_log("browser")]
        self.assertEqual([], [line for line in said if "willReadFrequently" not in line])

    def element(self, id):
        return self.browser.find_element(By.ID, id)

    def greys(self, id):
        return self.browser.execute_script(GREYS, id)

    def press(self, room, words):
        """Clicks the button that shows these words."""
        for button in self.element(room).find_elements(By.TAG_NAME, "button"):
            if button.text == words:
                button.click()
                return
        self.fail(f"no button '{words}' in {room}")

    def point(self, id, fraction_x, fraction_y):
        """An offset from an element's middle, for the pointer."""
        box = self.element(id).rect
        return round(box["width"] * (fraction_x - 0.5)), round(box["height"] * (fraction_y - 0.5))

    def drag(self, id, start, end):
        here, there = self.point(id, *start), self.point(id, *end)
        (ActionChains(self.browser).move_to_element_with_offset(self.element(id), *here).click_and_hold()
         .move_by_offset(there[0] - here[0], there[1] - here[1]).release().perform())

    def set_slider(self, id, value):
        self.browser.execute_script(
            "const s = document.getElementById(arguments[0]); s.value = arguments[1];"
            "s.dispatchEvent(new Event('input', {bubbles: true}));", id, value)

    def test_speaks_both_languages(self):
        heading = self.browser.find_element(By.TAG_NAME, "h1")
        self.element("en").click()
        english = heading.text
        self.element("fr").click()
        self.assertNotEqual(english, heading.text)
        self.assertEqual("true", self.element("fr").get_attribute("aria-pressed"))
        for canvas in self.browser.find_elements(By.TAG_NAME, "canvas"):
            self.assertTrue(canvas.get_attribute("aria-label"))

    def test_asks_the_network_for_nothing(self):
        self.assertEqual([], self.browser.execute_script(
            "return performance.getEntriesByType('resource').map(r => r.name)"))


class WavesOfAPicture(Page, unittest.TestCase):
    name = "Ondine1.html"
    REACH = 16

    def at(self, u, v):
        return tuple((frequency + self.REACH + 0.5) / (2 * self.REACH + 1) for frequency in (u, v))

    def click(self, u, v):
        (ActionChains(self.browser).move_to_element_with_offset(self.element("map"), *self.point("map", *self.at(u, v)))
         .click().perform())

    def rows(self):
        return [[cell.text for cell in row.find_elements(By.TAG_NAME, "td")]
                for row in self.element("waves").find_elements(By.TAG_NAME, "tr")]

    def check_picture(self, waves):
        """The picture against the plain sum of (u, v, amplitude, degrees)."""
        greys = self.greys("picture")
        chance = random.Random(7)
        for _ in range(500):
            x, y = chance.randrange(256), chance.randrange(256)
            expected = 128 + sum(a * math.cos(2 * math.pi * (u * x + v * y) / 256 + math.radians(p))
                                 for u, v, a, p in waves)
            self.assertAlmostEqual(expected, greys[256 * y + x], delta=0.51, msg=f"at {x}, {y}")

    def test_begins_with_one_wave(self):
        self.assertEqual([["4", "0", "64.0", "0°", "100", "0°"]], self.rows())
        self.check_picture([(4, 0, 100, 0)])

    def test_a_click_adds_a_wave_of_amplitude_32(self):
        self.press("examples", "Clear")
        self.check_picture([])
        self.click(3, -2)
        self.check_picture([(3, -2, 32, 0)])
        self.click(-5, 1)
        self.check_picture([(3, -2, 32, 0), (-5, 1, 32, 0)])

    def test_the_other_spot_of_a_wave_is_the_same_wave(self):
        self.press("examples", "Clear")
        self.click(3, 2)
        self.set_slider("phase", 40)
        self.click(-3, -2)
        self.assertEqual(1, len(self.rows()))
        self.assertEqual(["-3", "-2"], self.rows()[0][:2])
        # The same picture, told from the other side.
        self.check_picture([(3, 2, 32, 40)])

    def test_the_middle_is_no_wave(self):
        self.press("examples", "Clear")
        self.click(0, 0)
        self.assertEqual([], self.rows())
        self.assertIn("mean grey", self.element("place").text)

    def test_a_drag_moves_the_wave(self):
        self.press("examples", "Clear")
        self.click(2, 2)
        self.drag("map", self.at(2, 2), self.at(6, -1))
        self.assertEqual(["6", "-1"], self.rows()[0][:2])
        self.check_picture([(6, -1, 32, 0)])

    def test_a_wave_stops_before_another(self):
        self.press("examples", "Two crossed")
        self.drag("map", self.at(6, 0), self.at(0, -6))
        self.assertEqual(2, len(self.rows()))
        self.assertNotEqual(self.rows()[0][:2], self.rows()[1][:2])

    def test_sliding_the_picture_turns_the_phase(self):
        self.press("examples", "One wave")
        # 64 pixels of the picture are one period of four cycles: once round.
        for share, turned in ((1 / 4, 0), (1 / 16, -90), (1 / 8, 90)):
            self.drag("picture", (0.5, 0.5), (0.5 + share, 0.5))
            self.assertAlmostEqual(turned, float(self.rows()[0][5].rstrip("°")), delta=6)

    def test_by_keyboard(self):
        self.press("examples", "Clear")
        place = self.element("map")
        self.browser.execute_script("arguments[0].focus()", place)
        place.send_keys(Keys.ARROW_RIGHT, Keys.ARROW_DOWN, Keys.ENTER)
        added = [int(number) for number in self.rows()[0][:2]]
        place.send_keys(Keys.SHIFT, Keys.ARROW_UP)
        place.send_keys(Keys.NULL)
        self.assertEqual([added[0], added[1] - 1], [int(number) for number in self.rows()[0][:2]])
        place.send_keys(Keys.DELETE)
        self.assertEqual([], self.rows())

    def test_too_strong_a_sum_is_squeezed_and_says_so(self):
        self.press("examples", "Two crossed")
        self.set_slider("amplitude", 120)
        self.assertIn("squeezed", self.element("range").text)

    def test_the_picture_stays_on_the_right_whatever_the_notes_say(self):
        before = self.browser.get_window_size()
        self.addCleanup(self.browser.set_window_size, before["width"], before["height"])
        # As wide as the lab's window when it opens.
        self.browser.set_window_size(840, 1000)
        for language in ("en", "fr"):
            self.element(language).click()
            self.set_slider("amplitude", 120)
            self.click(9, -9)
            self.assertRegex(self.element("range").text, "squeezed|ramenés")
            self.assertEqual(self.element("map").location["y"], self.element("picture").location["y"])
            self.assertGreater(self.element("picture").location["x"], self.element("map").location["x"] + 350)
        greys = self.greys("picture")
        self.assertEqual((0, 255), (min(greys), max(greys)))

    def test_every_example_shows_its_waves(self):
        for button in self.element("examples").find_elements(By.TAG_NAME, "button"):
            button.click()
            waves = [(int(r[0]), int(r[1]), int(r[4]), int(r[5].rstrip("°"))) for r in self.rows()]
            if "squeezed" not in self.element("range").text:
                self.check_picture(waves)


class HarmonicsOfALine(Page, unittest.TestCase):
    name = "Ondine2.html"

    def dials(self):
        return self.element("dials").find_elements(By.TAG_NAME, "svg")

    def harmonics(self):
        """Amplitude and phase of each dial, as it tells them to a screen reader."""
        told = []
        for dial in self.dials():
            words = dial.get_attribute("aria-label").replace(",", "").replace("°", "").split()
            told.append((float(words[3]), float(words[5])))
        return told

    def power(self):
        return float(self.element("told").text.split()[1].rstrip(","))

    def crest(self):
        return float(self.element("told").text.split()[3])

    def test_the_square_wave_has_odd_harmonics_only(self):
        for n, (amplitude, phase) in enumerate(self.harmonics(), 1):
            self.assertAlmostEqual(1 / n if n % 2 else 0, amplitude, delta=0.005)
            if n % 2:
                self.assertEqual(-90, phase)

    def test_tells_the_power_and_the_crest_of_the_sum(self):
        for words in ("One wave", "Saw", "Triangle", "Pulses"):
            self.press("examples", words)
            waves = self.harmonics()
            self.assertAlmostEqual(sum(a * a / 2 for a, _ in waves), self.power(), delta=0.02)
            crest = max(sum(a * math.cos(2 * math.pi * n * t / 500 + math.radians(p))
                            for n, (a, p) in enumerate(waves, 1)) for t in range(500))
            self.assertAlmostEqual(crest, self.crest(), delta=0.05)

    def test_scattered_phases_keep_the_power_and_lose_the_crest(self):
        self.press("examples", "Pulses")
        power, crest = self.power(), self.crest()
        self.press("changes", "Scatter the phases")
        self.assertEqual(power, self.power())
        self.assertLess(self.crest(), crest)

    def test_an_arrow_is_taken_by_its_tip(self):
        dial = self.dials()[1]
        size = dial.rect["width"]
        # Half of the full length, straight up: amplitude 0.5, phase 90 degrees.
        (ActionChains(self.browser).move_to_element(dial).click_and_hold()
         .move_by_offset(0, -round(size * 25 / 120)).release().perform())
        amplitude, phase = self.harmonics()[1]
        self.assertAlmostEqual(0.5, amplitude, delta=0.03)
        self.assertAlmostEqual(90, phase, delta=3)

    def test_by_keyboard(self):
        dial = self.dials()[0]
        self.browser.execute_script("arguments[0].focus()", dial)
        ActionChains(self.browser).send_keys(Keys.ARROW_LEFT, Keys.ARROW_DOWN).perform()
        self.assertEqual((0.95, -75), self.harmonics()[0])

    def test_a_shift_turns_each_phase_by_its_number(self):
        self.press("examples", "Pulses")
        self.press("changes", "Shift by 1/24")
        for n, (_, phase) in enumerate(self.harmonics(), 1):
            turned = cmath.exp(1j * math.radians(phase)) * cmath.exp(1j * math.radians(15 * n))
            self.assertAlmostEqual(0, abs(turned - 1), delta=1e-6)

    def test_the_curve_follows(self):
        before = self.greys("graph")
        self.press("examples", "Triangle")
        self.assertFalse(before == self.greys("graph"))


class LatticeAndSamples(Page, unittest.TestCase):
    name = "Ondine3.html"
    SIDE = 128

    def spots(self, id):
        """Where a canvas is not black, as (x, y)."""
        return {(i % self.SIDE, i // self.SIDE) for i, grey in enumerate(self.greys(id)) if grey > 0}

    def test_the_reciprocal_of_steps_16_and_16(self):
        self.assertEqual({(x, y) for x in range(0, 128, 16) for y in range(0, 128, 16)}, self.spots("lattice"))
        self.assertEqual({(x, y) for x in range(0, 128, 8) for y in range(0, 128, 8)}, self.spots("latticeFT"))

    def test_a_longer_step_has_a_shorter_reciprocal_one(self):
        self.set_slider("a", 5)
        self.assertEqual({(x, y) for x in range(0, 128, 32) for y in range(0, 128, 16)}, self.spots("lattice"))
        self.assertEqual({(x, y) for x in range(0, 128, 4) for y in range(0, 128, 8)}, self.spots("latticeFT"))

    def test_a_sheared_lattice_has_its_reciprocal(self):
        self.set_slider("shear", 2)
        shear = int(self.element("shearOut").text.split()[0])
        self.assertEqual(4, shear)
        waves = {((u + 64) % 128, (v + 64) % 128) for u in range(128) for v in range(128)
                 if u * 16 % 128 == 0 and (u * shear + v * 16) % 128 == 0}
        self.assertEqual(waves, self.spots("latticeFT"))

    def test_a_crystal_repeats_its_motif_and_has_nothing_between_its_spots(self):
        crystal = self.greys("result")
        for y in range(self.SIDE):
            for x in range(self.SIDE):
                self.assertEqual(crystal[y * 128 + x], crystal[(y + 16) % 128 * 128 + (x + 16) % 128])
        self.assertIn("64 motifs, 256 reciprocal points. Largest value anywhere else: 0.0 %", self.element("told").text)
        self.assertTrue(self.spots("resultFT") <= self.spots("latticeFT"))

    def test_drawing_changes_the_motif_and_its_crystal(self):
        self.press("motifs", "Clear")
        self.assertEqual(set(), self.spots("first"))
        (ActionChains(self.browser).move_to_element_with_offset(self.element("first"), *self.point("first", 0.5, 0.5))
         .click().perform())
        drawn = self.spots("first")
        self.assertEqual(9, len(drawn))
        self.assertEqual(9 * 64, len(self.spots("result")))

    def test_fine_samples_of_a_smooth_picture_rebuild_it_and_coarse_ones_do_not(self):
        self.element("sampling").click()
        error = lambda: float(self.element("told").text.split(":")[1].split()[0])
        self.assertLess(error(), 1)
        self.set_slider("a", 5)
        self.set_slider("b", 5)
        self.assertGreater(error(), 10)

    def test_samples_are_the_picture_at_the_points(self):
        self.element("sampling").click()
        self.set_slider("a", 3)
        points = self.spots("lattice")
        self.assertTrue(self.spots("result") <= points)


if __name__ == "__main__":
    PAGES = pathlib.Path(sys.argv.pop(1))
    unittest.main(verbosity=2)
