"""What a screen reader hears of the cards, and does with them."""
from cards import FOCUS, TRIAGE, record_links
from desktop import expect, wait_for
from screen_reader import ScreenReader


def a_screen_reader_hears_all_that_the_cards_say(desktop):
    reader = ScreenReader(desktop)
    desktop.show_sample_day()
    for name in ("Focus", "Next up", "Triage", "Group today"):
        card, *inside = reader.card(name)
        expect(card.role == "panel" and card.name == name and "Press" in card.actions, f"the card is {card}")
        expect(inside and all(each.name for each in inside), f"without a name on {name}: {inside}")
        for each in inside:
            actions = {"label": [], "link": ["Press"], "push button": ["Press"]}.get(each.role)
            expect(each.actions == actions, f"on {name}: {each}")
    expect([each.name for each in reader.card("Triage")] == ["Triage", "TRIAGE", "12 to review", "~4 min · opens deck"],
           f"on the triage card: {reader.card('Triage')}")
    task = desktop.placeholder()["tasks"][0]["summary"]
    words = [(each.role, each.name) for each in reader.card("Focus")[1:7]]
    expect(words == [("label", "FOCUS"), ("label", "4 due"), ("label", "2 overdue"), ("label", "2 done"),
                     ("push button", f"Complete: {task}"), ("link", task)], f"on the focus card: {words}")


def a_screen_reader_presses_what_it_hears(desktop):
    links = record_links(desktop)
    desktop.show_sample_day()
    reader = ScreenReader(desktop)
    wait_for(lambda: any(each.name == "Focus" for each in reader.everything()), "a card that can be heard")
    card = reader.card("Focus")
    reader.press(card[0])
    wait_for(lambda: links() == ["vantel://focus"], "the widget's own link")
    reader.press(next(each for each in card if each.role == "link"))
    wait_for(lambda: links() == ["vantel://focus", "vantel://todo?id=demo-1"], "the task's link")
    complete = next(each for each in card if each.role == "push button")
    reader.press(complete)
    wait_for(lambda: [each["todoID"] for each in desktop.journal()] == ["demo-1"], "a journal line")
    wait_for(lambda: complete.name not in [each.name for each in reader.card("Focus")], "the task gone")


def a_screen_reader_hears_what_went_wrong(desktop):
    reader = ScreenReader(desktop)
    desktop.show_sample_day()
    reader.press(reader.card("Focus")[0])
    wait_for(lambda: ("alert message", "No application is installed that opens this.")
             in [(each.role, each.name) for each in reader.card("Focus")], "a notice that can be heard")
