#!/usr/bin/python3
# Reads the running game as a screen reader does, through AT-SPI (pyatspi):
# prints every control of the menu with its name, role and states, checks
# that Tab reaches the options, starts a game, prints every tile of the board
# with its state, and drives manual scanning with xdotool, checking after each
# press of Space that the reader's focus is on the highlighted tile.
# Run by scripts/prova-accessibilita.sh; exits 1 when a check fails.
import subprocess
import sys
import time

import pyatspi
from gi.repository import GLib

fuochi = []  # the names that took the focus, in order, as the reader heard them


def su_fuoco(evento):
    if evento.detail1 == 1:
        try:
            fuochi.append(evento.source.name)
        except Exception:
            pass


def pompa(secondi):
    """Lets the events that arrived reach the listener."""
    fine = time.time() + secondi
    contesto = GLib.MainContext.default()
    while time.time() < fine:
        while contesto.pending():
            contesto.iteration(False)
        time.sleep(0.02)


def tasto(*tasti):
    subprocess.run(["xdotool", "key", *tasti], check=True)
    pompa(0.6)


def stati(nodo):
    s = nodo.getState()
    nomi = []
    for st, n in ((pyatspi.STATE_FOCUSABLE, "focusable"), (pyatspi.STATE_FOCUSED, "FOCUSED"),
                  (pyatspi.STATE_CHECKABLE, "checkable"), (pyatspi.STATE_CHECKED, "CHECKED"),
                  (pyatspi.STATE_ENABLED, "enabled"), (pyatspi.STATE_SHOWING, "showing")):
        if s.contains(st):
            nomi.append(n)
    return ",".join(nomi)


def gioco():
    for _ in range(120):
        desktop = pyatspi.Registry.getDesktop(0)
        for app in desktop:
            if app is not None and app.name == "coppie-vivaci":
                return app
        time.sleep(0.5)
    sys.exit("the game never appeared on the accessibility bus")


def finestra(app, inizio, secondi=30):
    fine = time.time() + secondi
    while time.time() < fine:
        for w in app:
            if w is not None and w.name.startswith(inizio) and w.getState().contains(pyatspi.STATE_SHOWING):
                return w
        pompa(0.3)
    return None


def visita(nodo, livello=0, fuori=None):
    for figlio in nodo:
        if figlio is None:
            continue
        if fuori is not None:
            fuori.append((livello, figlio))
        visita(figlio, livello + 1, fuori)
    return fuori


def cerca(nodo, ruolo, inizio):
    for _, n in visita(nodo, 0, []):
        if n.getRole() == ruolo and n.name.startswith(inizio):
            return n
    return None


def premi(nodo):
    azioni = nodo.queryAction()
    for i in range(azioni.nActions):
        if azioni.getName(i) in ("Press", "press", "click"):
            azioni.doAction(i)
            pompa(0.8)
            return
    azioni.doAction(0)
    pompa(0.8)


def controlli(finestra_):
    interessanti = {pyatspi.ROLE_PUSH_BUTTON, pyatspi.ROLE_RADIO_BUTTON, pyatspi.ROLE_LIST, pyatspi.ROLE_COMBO_BOX,
                    pyatspi.ROLE_MENU_BAR, pyatspi.ROLE_MENU_ITEM, pyatspi.ROLE_MENU, pyatspi.ROLE_PANEL,
                    pyatspi.ROLE_ALERT, pyatspi.ROLE_STATUS_BAR, pyatspi.ROLE_TEXT, pyatspi.ROLE_LIST_ITEM}
    return [(l, n) for l, n in visita(finestra_, 0, []) if n.getRole() in interessanti]


def main():
    errori = []
    app = gioco()
    print("application:", app.name)

    # First run: the game copies its ready-made sets and asks whether to
    # delete them from the program's folder; the answer is no (yes would empty
    # build/programma/memorypronti), given with the box's own button.
    fine = time.time() + 90
    menu = None
    while time.time() < fine and menu is None:
        menu = finestra(app, "Coppie vivaci: menu", 0.5)
        if menu is not None:
            break
        for w in app:
            if w is None or not w.getState().contains(pyatspi.STATE_SHOWING):
                continue
            pulsanti = [n for _, n in visita(w, 0, []) if n.getRole() == pyatspi.ROLE_PUSH_BUTTON
                        and n.getState().contains(pyatspi.STATE_ENABLED)]
            no = [p for p in pulsanti if p.name.replace("&", "").upper() in ("NO", "OK")]
            scelto = no[0] if no else None
            if w.name.startswith("Coppie vivaci: schermata") and pulsanti:
                scelto = pulsanti[0]  # the splash: its one button, Avvio
            if scelto is not None:
                print("window: %r (%s), pressing %r" % (w.name, w.getRoleName(), scelto.name))
                premi(scelto)
                pompa(1)
    if menu is None:
        sys.exit("the menu never came")

    print("\n== the menu: %r (%s), %r" % (menu.name, menu.getRoleName(), menu.description))
    for livello, n in controlli(menu):
        if not n.getState().contains(pyatspi.STATE_SHOWING) and n.getRole() != pyatspi.ROLE_ALERT:
            continue
        print("%s%-13s %-40r [%s]" % ("  " * livello, n.getRoleName(), n.name, stati(n)))
        if not n.name and n.getRole() != pyatspi.ROLE_MENU_BAR:
            errori.append("a %s of the menu has no name" % n.getRoleName())
    elenco = cerca(menu, pyatspi.ROLE_LIST, "")
    if elenco is None or elenco.childCount == 0:
        errori.append("the menu lists no set to play")

    # Listening from here on: the game's bridge learns of the listener and
    # sends the focus events from then on.
    for evento in ("object:state-changed:focused", "focus:"):
        pyatspi.Registry.registerEventListener(su_fuoco, evento)
    pompa(1.5)

    print("\n== Tab on the menu: where the focus goes")
    raggiunti = []
    for _ in range(22):
        del fuochi[:]
        tasto("Tab")
        raggiunti.append(fuochi[-1] if fuochi else None)
    print("  " + " -> ".join(repr(r) for r in raggiunti))
    opzioni = [n for _, n in visita(menu, 0, []) if n.getRole() == pyatspi.ROLE_RADIO_BUTTON
               and n.getState().contains(pyatspi.STATE_ENABLED)]
    mancate = [o.name for o in opzioni if o.name not in raggiunti]
    print("  options reached by Tab: %d of %d enabled" % (len(opzioni) - len(mancate), len(opzioni)))
    if mancate:
        errori.append("Tab did not reach " + ", ".join(mancate))

    print("\n== a game: Gioca, a name, Enter")
    premi(cerca(menu, pyatspi.ROLE_PUSH_BUTTON, "Gioca"))
    nomi = finestra(app, "Chi gioca", 15)
    if nomi is None:
        sys.exit("the names box never came")
    print("window:", repr(nomi.name))
    subprocess.run(["xdotool", "type", "--delay", "60", "Anna"], check=True)
    tasto("Return")
    tavola = finestra(app, "Memory", 30)
    if tavola is None:
        sys.exit("no board came")
    pompa(2)
    print("\n== the board: %r (%s)" % (tavola.name, tavola.getRoleName()))
    tessere = []
    for livello, n in visita(tavola, 0, []):
        if n.getRole() == pyatspi.ROLE_PUSH_BUTTON and n.name.startswith("Tessera"):
            tessere.append(n)
        elif livello == 0:
            print("  %-13s %-40r [%s]" % (n.getRoleName(), n.name, stati(n)))
    for t in tessere:
        print("  %-13s %-48r [%s]" % (t.getRoleName(), t.name, stati(t)))

    def focalizzata():
        f = [i for i, t in enumerate(tessere) if t.getState().contains(pyatspi.STATE_FOCUSED)]
        return f[0] if len(f) == 1 else (None if not f else f)

    print("\n== manual scanning: Space moves the highlight, the reader's focus follows")
    posto = focalizzata()
    print("  at the start the focus is on:", tessere[posto].name if isinstance(posto, int) else posto)
    if posto != 0:
        errori.append("at the start the focus is not on the first tile")
    seguiti = 0
    for passo in range(len(tessere) + 2):
        del fuochi[:]
        tasto("space")
        nuovo = focalizzata()
        atteso = (posto + 1) % len(tessere) if isinstance(posto, int) else None
        sentito = fuochi[-1] if fuochi else None
        ok = nuovo == atteso and sentito == tessere[atteso].name
        seguiti += ok
        print("  Space %2d: focused %-44r heard %-44r %s" % (
            passo + 1, tessere[nuovo].name if isinstance(nuovo, int) else nuovo, sentito, "ok" if ok else "WRONG"))
        posto = nuovo
    if seguiti != len(tessere) + 2:
        errori.append("the focus missed %d steps" % (len(tessere) + 2 - seguiti))

    print("\n== Enter turns the highlighted tile; Space, Enter turns the next one")
    scelta = posto
    tasto("Return")
    pompa(0.5)
    print("  turned:", repr(tessere[scelta].name), "[%s]" % stati(tessere[scelta]))
    tasto("space")
    seconda = focalizzata()
    tasto("Return")
    print("  turned:", repr(tessere[seconda].name) if isinstance(seconda, int) else seconda)
    subprocess.run(["import", "-window", "root", sys.argv[1]], check=True)
    print("  screenshot:", sys.argv[1])
    pompa(5)
    print("  after the move:")
    for i in (scelta, seconda):
        if isinstance(i, int):
            print("   ", repr(tessere[i].name), "[%s]" % stati(tessere[i]))

    print("\n== the exit question")
    premi(cerca(tavola, pyatspi.ROLE_MENU_ITEM, "Esci"))
    domanda = None
    for _, n in visita(tavola, 0, []):
        if n.getRole() == pyatspi.ROLE_ALERT:
            domanda = n
    if domanda is None:
        errori.append("the exit question is not in the tree")
    else:
        print("  %s %r %r [%s]" % (domanda.getRoleName(), domanda.name, domanda.description, stati(domanda)))
        for n in domanda:
            if n is not None and n.getRole() == pyatspi.ROLE_PUSH_BUTTON:
                print("    %s %r [%s]" % (n.getRoleName(), n.name, stati(n)))
        premi(cerca(domanda, pyatspi.ROLE_PUSH_BUTTON, "NO"))

    print()
    if errori:
        print("FAILED:", "; ".join(errori))
        return 1
    print("All checks passed: every control named, Tab reaches the options, the focus followed every step.")
    return 0


if __name__ == "__main__":
    sys.exit(main())
