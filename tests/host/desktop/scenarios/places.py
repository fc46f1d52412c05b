"""Where cards stand, and what is remembered of it."""
from cards import FOCUS, NEXT_UP, TRIAGE
from desktop import expect, wait_for


def a_dragged_widget_stays_where_it_was_dropped(desktop):
    desktop.write_snapshot(dict(desktop.placeholder(), events=[]))  # so that nothing counts down
    process = desktop.start_widgets()
    left, top, _, _ = desktop.card(TRIAGE)
    grip = (left + 120, top + 120)
    desktop.drag(grip, (grip[0] - 700, grip[1] + 200))
    wait_for(lambda: desktop.card(TRIAGE)[:2] != (left, top), "another place of the triage card")
    desktop.wait_until_still()
    moved, picture = desktop.card(TRIAGE), desktop.picture()
    expect(abs(moved[0] - left + 700) <= 24 and abs(moved[1] - top - 200) <= 24, f"it stands at {moved}")
    process.terminate()
    expect(process.wait(5) == 0, "the program did not end well")
    desktop.start_widgets()
    expect(desktop.card(TRIAGE) == moved, "it stands elsewhere after a restart")
    wait_for(lambda: desktop.picture() == picture, "the same screen as before the restart")


def two_widgets_of_one_kind_are_told_as_two(desktop):
    desktop.place((TRIAGE, "systemSmall"), (FOCUS, "systemSmall"), (TRIAGE, "systemSmall"), (NEXT_UP, "systemSmall"))
    desktop.show_sample_day()
    expect(desktop.ask("CurrentConfigurations") == [(TRIAGE, "systemSmall"), (FOCUS, "systemSmall"),
                                                    (TRIAGE, "systemSmall"), (NEXT_UP, "systemSmall")],
           f"the bus tells of {desktop.ask('CurrentConfigurations')}")


def unreadable_placements_are_set_aside(desktop):
    desktop.write_snapshot(desktop.placeholder())
    desktop.state.mkdir()
    (desktop.state / "placements.json").write_text("{")
    desktop.start(desktop.widgets)

    def set_aside():
        return [each for each in desktop.state.iterdir() if each.name != "placements.json"]
    wait_for(lambda: len(set_aside()) == 1 and (desktop.state / "placements.json").exists(), "both files")
    expect(set_aside()[0].read_text() == "{", f"{set_aside()[0]} is not the old file")
    expect(len(desktop.placements()) == 4, f"the placements are {desktop.placements()}")


def a_card_that_is_dropped_onto_another_comes_to_rest_beside_it(desktop):
    desktop.write_snapshot(dict(desktop.placeholder(), events=[]))  # so that nothing counts down
    desktop.start_widgets()
    left, top, _, _ = desktop.card(TRIAGE)
    onto, below, width, height = desktop.card(FOCUS)
    grip = (left + 120, top + 120)
    desktop.drag(grip, (onto + 100, below + 100))
    wait_for(lambda: desktop.card(TRIAGE)[:2] != (left, top), "another place of the triage card")
    x, y, _, _ = desktop.card(TRIAGE)
    expect(x + 170 <= onto or x >= onto + width or y + 170 <= below or y >= below + height, f"it stands at {x}, {y}")
    wait_for(lambda: all(map(desktop.is_drawn, desktop.placements())), "all cards drawn")
