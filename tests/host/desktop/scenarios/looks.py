"""Dark and light, contrast and scale, as the desktop has them."""
from cards import FOCUS
from desktop import expect, wait_for
from session_bus import SettingsPortal


def a_dark_desktop_darkens_the_cards_at_once(desktop):
    portal = SettingsPortal(desktop)
    desktop.show_sample_day()
    left, top, _, _ = desktop.card(FOCUS)

    def is_dark():
        return sum(desktop.picture(left + 8, top + 85, 1, 1)) < 3 * 128
    expect(not is_dark(), "the card was dark at once")
    for now_dark in (True, False):
        portal.darken(now_dark)
        wait_for(lambda: is_dark() == now_dark, "a dark card" if now_dark else "a light card")
    for _ in range(2):
        portal.darken(True)
        wait_for(is_dark, "a dark card again")
        portal.leave_colours_open()
        wait_for(lambda: not is_dark(), "the light card of a desktop that is light by itself")


def a_desktop_of_high_contrast_blackens_the_texts_at_once(desktop):
    portal = SettingsPortal(desktop)
    desktop.show_sample_day()
    left, top, _, _ = desktop.card(FOCUS)

    def is_black():
        pixels = desktop.picture(left + 16, top + 16, 80, 60)
        return any(pixels[i:i + 3] == bytes(3) for i in range(0, len(pixels), 3))
    expect(not is_black(), "the texts were black at once")
    for now_high in (True, False):
        portal.heighten_contrast(now_high)
        wait_for(lambda: is_black() == now_high, "black texts" if now_high else "texts as they were")


def expect_cards_twice_as_large(desktop, margin=48):
    """With so many pixels from the edges of the screen."""
    desktop.place((FOCUS, "systemSmall"))
    desktop.show_sample_day(cards=1)
    width = height = 2 * 170
    left, top = desktop.width - margin - width, margin
    middle, centre = top + height // 2, left + width // 2
    inside = [(left + 3, middle), (left + width - 4, middle), (centre, top + 3), (centre, top + height - 4)]
    outside = [(left - 3, middle), (left + width + 2, middle), (centre, top - 3), (centre, top + height + 2)]

    def is_card(place):
        return desktop.picture(*place, 1, 1) != bytes(3)
    wait_for(lambda: all(map(is_card, inside)) and not any(map(is_card, outside)), "a card of 340 by 340 pixels")
    rows = [desktop.picture(left, top + y, width, 1) for y in range(60, 100)]
    expect(any(rows[y] != rows[y + 1] for y in range(0, 40, 2)) and any(rows[y] != rows[y + 1] for y in range(1, 39, 2)),
           "pixels are doubled")


def cards_are_twice_as_large_where_the_program_is_asked_to(desktop):
    desktop.environment["QT_SCALE_FACTOR"] = "2"
    expect_cards_twice_as_large(desktop)


def cards_are_twice_as_large_at_twice_the_resolution(desktop):
    desktop.set_resolution(192)
    expect_cards_twice_as_large(desktop)


def the_scale_of_texts_counts_once_where_the_resolution_has_it(desktop):
    SettingsPortal(desktop).scale_texts(2.0)
    desktop.set_resolution(192)
    expect_cards_twice_as_large(desktop)


def the_scale_of_texts_enlarges_cards(desktop):
    SettingsPortal(desktop).scale_texts(2.0)
    expect_cards_twice_as_large(desktop, margin=24)


def corners_are_cut_as_finely_as_the_screen_is(desktop):
    desktop.environment["QT_SCALE_FACTOR"] = "2"
    desktop.place((FOCUS, "systemSmall"))
    desktop.show_sample_day(cards=1)
    left, top, corner = desktop.width - 48 - 340, 48, 44
    rows = [desktop.picture(left, top + y, corner, 1) for y in range(corner)]
    cut = [next((x for x in range(corner) if row[3 * x:3 * x + 3] != bytes(3)), corner) for row in rows]
    expect(cut[0] > 20 and cut[-1] <= 1, f"no round corner: {cut}")
    expect(any(cut[y] != cut[y + 1] for y in range(0, corner, 2)), f"steps of two pixels: {cut}")
