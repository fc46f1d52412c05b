"""What becomes of the widgets when outputs come, change and go."""
import re

from desktop import Skipped, expect, wait_for
from sessions import arrange_on_two_outputs, on, start, still_day
from wayland_desktop import PluggableDesktop


def on_output(desktop, placement, output):
    """Where a card is, and a point of the desktop beside it."""
    rectangle = desktop.outputs()[output]
    width = 364 if placement["family"] == "systemMedium" else 170
    left = rectangle["x"] + (placement["horizontal"] if placement["corner"].endswith("Left")
                             else rectangle["width"] - placement["horizontal"] - width)
    top = rectangle["y"] + (placement["vertical"] if placement["corner"].startswith("top")
                            else rectangle["height"] - placement["vertical"] - 170)
    return left, top, width, 170


def all_stand(desktop, owners):
    """Whether each widget is drawn on the output that has it, and nothing beside it. Owners are names of outputs."""
    active = desktop.outputs()
    for placement, output in zip(desktop.placements(), owners):
        if output not in active:
            return False
        left, top, width, height = on_output(desktop, placement, output)
        beside = [desktop.color(left + width + 1, top + height // 2), desktop.color(left - 2, top + height // 2)]
        if len(set(desktop.picture(left, top, width, height))) < 20 or desktop.color(left + 40, top + 3) in beside:
            return False
    return True


def expect_flat(desktop, memory):
    """Nothing that grows for as long as the program runs. The first turns fill caches."""
    warm = memory[len(memory) // 3]
    desktop.figure(f"{len(memory)} turns; {memory[0]} bytes, {warm}, {memory[-1]}")
    expect(memory[-1] - warm < 6_000_000, f"the memory grew from {warm} to {memory[-1]}")


@on(PluggableDesktop)
def widgets_come_back_whatever_happens_to_outputs(desktop):
    first, second = arrange_on_two_outputs(desktop)
    desktop.write_snapshot(still_day(desktop))
    process = desktop.start(desktop.widgets)
    saved = desktop.placements()

    def check(what):
        wait_for(lambda: all_stand(desktop, [first, first, second, second]), f"four cards after {what}")
        expect(process.poll() is None, f"the program ended after {what}")
    check("the start")
    memory, changes = [], ["scale 1.5", "scale 2", "scale 1", "unplug"]
    if not desktop.is_nested:
        changes.append("disable")
    for turn in range(200 if desktop.is_long else 30):
        change = changes[turn % len(changes)]
        if change in ("disable", "unplug"):
            getattr(desktop, change)(second)
            wait_for(lambda: all_stand(desktop, [first, first]), "two cards on the other output")
            second = desktop.plug() if change == "unplug" else desktop.enable(second)
        else:
            desktop.tell("output", second, *change.split())
        check(f"change {turn}")
        memory.append(desktop.memory(process))
    expect(desktop.placements() == saved, f"the placements are {desktop.placements()}")
    expect_flat(desktop, memory)


@on(PluggableDesktop)
def widgets_come_back_after_there_was_no_output(desktop):
    process = start(desktop)
    saved, memory, output = desktop.placements(), [], [*desktop.outputs()][0]
    for turn in range(100 if desktop.is_long else 10):
        desktop.unplug(output)
        output = desktop.plug()
        wait_for(lambda: all_stand(desktop, [output] * 4), f"four cards after turn {turn}")
        expect(process.poll() is None, f"the program ended after turn {turn}")
        memory.append(desktop.memory(process))
    expect(desktop.placements() == saved, f"the placements are {desktop.placements()}")
    expect_flat(desktop, memory)


@on(PluggableDesktop)
def a_widget_can_be_dragged_to_another_output(desktop):
    first, second = arrange_on_two_outputs(desktop)
    desktop.write_snapshot(still_day(desktop))
    desktop.start(desktop.widgets)
    wait_for(lambda: all_stand(desktop, [first, first, second, second]), "four cards")
    desktop.resize()
    triage = desktop.placements()[1]
    left, top, _, _ = on_output(desktop, triage, first)
    middle = desktop.outputs()[second]["x"] + 600, 300
    desktop.drag((left + 120, top + 150), (middle[0] + 35, middle[1] + 65))
    wait_for(lambda: desktop.placements()[1]["monitor"]["name"] == second, "a placement on the other output")
    desktop.leave()
    wait_for(lambda: all_stand(desktop, [first, second, second, second]), "four cards after the drag")


def pictures(log):
    """The sizes of what the surfaces of a program show, of which the log has the requests."""
    sizes, shown = {}, {}
    for request in re.finditer(r"-> (\w+)[#@](\d+)\.(create_buffer|attach|destroy)\((.*)\)", log):
        kind, number, name, arguments = request.groups()
        values = re.findall(r"\w+(?=,|$)", arguments)
        if name == "create_buffer":
            sizes[values[0]] = (int(values[2]), int(values[3]))
        elif kind == "wl_surface" and name == "attach":
            shown[number] = sizes.get(values[0])
        elif kind == "wl_surface":
            shown.pop(number, None)
    return sorted(each for each in shown.values() if each)


def cards_have_the_pixels_that_a_fractional_scale_asks_for(desktop):
    if "wp_fractional_scale_manager_v1" not in desktop.devices.offered:
        raise Skipped("this compositor has whole scales only")
    output, log = next(iter(desktop.outputs())), desktop.folder / "log"
    desktop.environment["WAYLAND_DEBUG"] = "client"
    desktop.write_snapshot(still_day(desktop))
    with log.open("w") as requests:
        desktop.start(desktop.widgets, stderr=requests)
    for scale, height, width in (("1.5", 330, 618), ("1", 220, 412), ("1.25", 275, 515), ("2", 440, 824)):
        desktop.tell("output", output, "scale", scale)
        cards = [(height, height)] * 2 + [(width, height)] * 2
        wait_for(lambda cards=cards: pictures(log.read_text()) == cards, f"pictures of {cards} at a scale of {scale}")
