/* The journal and the snapshot between widgets, a program that knows no redo copy, and a companion that drains;
 * with processes killed anywhere, and the power cut anywhere.
 *
 * An entry is a bit. A widget appends one and stamps the snapshot; the companion reads, stores, writes the snapshot,
 * and removes what it stored. Each step below is what cannot be divided: a system call, or a few under a lock of
 * which only the last one can be seen by others. A write may end half done.
 *
 * What is checked is in CHECK and in the asserts. Each SEED_… is a mistake that must be caught:
 *
 *   SEED_OLD_LIST              the companion rewrites from the list it read before it stored
 *   SEED_REMOVE_BEFORE_STORE   it removes what it has not stored yet
 *   SEED_REMOVE_BEFORE_SHOWING it removes what the snapshot does not show as done yet
 *   SEED_NO_COPY               it truncates without a redo copy
 *   SEED_COPY_NOT_SYNCED       it truncates when the copy's name is not on the disk yet
 *   SEED_COPY_REMOVED_EARLY    the copy goes before the journal is synced
 *   SEED_FINISH_DROPS          finishing a rewrite takes the copy for all there is
 *   SEED_FINISH_IN_PLACE       finishing does not keep the lines that came meanwhile in a copy of their own
 *   SEED_ACK_BEFORE_SYNC       an append is acknowledged before it is synced
 *   SEED_NO_IDS                the companion does not check by id what it carried out before
 *   SEED_RECORD_LATER          it stores the effect, and the record of the id in a step of its own after it
 *   SEED_RECORD_EARLIER        the same the other way round
 *   SEED_LOCK_SURVIVES         a child that was started under a lock keeps it
 *   SEED_BOTH_LOCKS            the stamp is made while the journal is still locked
 */

#ifndef KILLS
#define KILLS 2
#endif
#ifndef CUTS
#define CUTS 1
#endif
#ifndef WIDGETS
#define WIDGETS 1
#endif
#ifndef ROUNDS
#define ROUNDS 2
#endif

#define OLDER 4 /* the entry of the program that knows no redo copy */
#define NONE 0

byte journal;       /* what programs read */
byte surelyOnDisk;  /* what every power cut leaves of it */
byte maybeOnDisk;   /* what some power cut leaves of it */

bool copy;          /* the redo copy as programs see it, and as the disk may have it */
byte kept, removed;
bool copyOnDisk;
byte keptOnDisk, removedOnDisk;

byte snapshot;      /* the entries that it shows as done */

byte acknowledged;  /* the user was told */
byte effect;        /* what the companion has carried out, in its own store */
byte recorded;      /* the ids that are on record there */
byte twice;         /* what it has carried out more than once */

byte journalLock, snapshotLock; /* the holder, or NONE */
byte kills, cuts;
byte life;          /* counts the power cuts: a process of an earlier life is dead */

#define known (journal | effect | (copy -> kept : 0))

/* Nothing acknowledged is lost, nothing is carried out twice, and nobody holds both locks. */
#define CHECK \
    assert((acknowledged & ~known) == 0); \
    assert(twice == 0); \
    assert(journalLock == NONE || journalLock != snapshotLock)

inline freeLocksOf(holder) {
#ifndef SEED_LOCK_SURVIVES
    if :: journalLock == holder -> journalLock = NONE :: else fi;
    if :: snapshotLock == holder -> snapshotLock = NONE :: else fi
#else
    skip
#endif
}

/* One step of a process, before which it may be killed or may have died in a power cut. */
#define STEP(action) \
    atomic { \
        if \
        :: life != mine -> goto dead \
        :: life == mine && kills < KILLS -> kills++; freeLocksOf(_pid); goto dead \
        :: life == mine -> action; CHECK \
        fi \
    }

/* Waits for a lock. */
#define TAKE(lock) \
    atomic { \
        if \
        :: life != mine -> goto dead \
        :: life == mine && lock == NONE -> lock = _pid; CHECK \
        fi \
    }

#define RELEASE(lock) STEP(lock = NONE)

/* Any bits of a set, as a write or a disk leaves them. */
inline pick(some, from) {
    some = 0;
    if :: from & 1 -> if :: some = some | 1 :: skip fi :: else fi;
    if :: from & 2 -> if :: some = some | 2 :: skip fi :: else fi;
    if :: from & 4 -> if :: some = some | 4 :: skip fi :: else fi
}

inline syncJournal() {
    surelyOnDisk = journal;
    maybeOnDisk = journal
}

inline truncateJournal() {
    journal = 0;
    surelyOnDisk = 0
}

inline appendTo(entry) {
    journal = journal | entry;
    maybeOnDisk = maybeOnDisk | entry
}

inline writePart(contents) {
    pick(part, contents);
    journal = part;
    maybeOnDisk = maybeOnDisk | part
}

inline writeWhole(contents) {
    journal = contents;
    maybeOnDisk = maybeOnDisk | contents
}

/* The temporary is complete and synced when it gets its name. */
inline nameCopy(lines, gone) {
    copy = true;
    kept = lines;
    removed = gone
}

inline syncNames() {
    copyOnDisk = copy;
    keptOnDisk = kept;
    removedOnDisk = removed
}

inline dropCopy() {
    copy = false;
    kept = 0;
    removed = 0
}

inline powerCut() {
    pick(part, maybeOnDisk & ~surelyOnDisk);
    journal = part | surelyOnDisk;
    if
    :: copy = copyOnDisk; kept = keptOnDisk; removed = removedOnDisk
    :: copyOnDisk = copy; keptOnDisk = kept; removedOnDisk = removed
    fi;
    surelyOnDisk = journal;
    maybeOnDisk = journal;
    journalLock = NONE;
    snapshotLock = NONE;
    life++
}

/* Under the journal's lock: what a rewrite has left undone is done first. */
#ifdef SEED_FINISH_DROPS
#define linesToKeep (kept)
#else
#define linesToKeep (kept | (journal & ~removed))
#endif

#ifdef SEED_FINISH_IN_PLACE
#define FINISH \
    if \
    :: copy -> \
        STEP(wanted = linesToKeep; gone = removed); \
        REWRITE \
    :: else \
    fi
#else
#define FINISH \
    if \
    :: copy -> \
        STEP(wanted = linesToKeep; gone = removed); \
        STEP(nameCopy(wanted, gone)); \
        STEP(syncNames()); \
        REWRITE \
    :: else \
    fi
#endif

#ifdef SEED_COPY_REMOVED_EARLY
#define REWRITE \
    STEP(truncateJournal()); \
    STEP(writePart(wanted)); \
    STEP(writeWhole(wanted)); \
    STEP(dropCopy()); \
    STEP(syncNames()); \
    STEP(syncJournal())
#else
#define REWRITE \
    STEP(truncateJournal()); \
    STEP(writePart(wanted)); \
    STEP(writeWhole(wanted)); \
    STEP(syncJournal()); \
    STEP(dropCopy()); \
    STEP(syncNames())
#endif

/* A click: the entry is journalled durably, then the user is told, then the snapshot is stamped. A process that is
 * killed is not started again: the click has failed. */
proctype Widget(byte entry) {
    byte mine = 0, wanted, gone, part;
    TAKE(journalLock);
    FINISH;
    STEP(appendTo(entry));
#ifdef SEED_ACK_BEFORE_SYNC
    STEP(acknowledged = acknowledged | entry);
    STEP(syncJournal());
#else
    STEP(syncJournal());
#endif
#ifdef SEED_BOTH_LOCKS
    TAKE(snapshotLock);
    RELEASE(journalLock);
#else
    RELEASE(journalLock);
    STEP(acknowledged = acknowledged | entry);
    TAKE(snapshotLock);
#endif
    STEP(snapshot = snapshot | entry);
    RELEASE(snapshotLock);
dead:
    skip
}

/* The same for a program from before there were redo copies. */
proctype OlderProgram() {
    byte mine = 0;
    TAKE(journalLock);
    STEP(appendTo(OLDER));
    STEP(syncJournal());
    RELEASE(journalLock);
    STEP(acknowledged = acknowledged | OLDER);
dead:
    skip
}

#ifdef SEED_NO_IDS
#define FIND_NEW newly = listed
#else
#define FIND_NEW newly = listed & ~recorded
#endif
#define STORE_EFFECT twice = twice | (effect & newly); effect = effect | newly
#define RECORD_IDS recorded = recorded | newly

/* Effects and ids are stored together, durably, so that whatever ends the companion leaves both or neither. What was
 * new is then forgotten, as it would only make states differ. */
#ifdef SEED_RECORD_LATER
#define CARRY_OUT STEP(FIND_NEW; STORE_EFFECT); STEP(RECORD_IDS)
#else
#ifdef SEED_RECORD_EARLIER
#define CARRY_OUT STEP(FIND_NEW; RECORD_IDS); STEP(STORE_EFFECT)
#else
#define CARRY_OUT STEP(FIND_NEW; STORE_EFFECT; RECORD_IDS; newly = 0)
#endif
#endif

#ifdef SEED_OLD_LIST
#define REMAINING wanted = listed & ~handled; gone = listed & handled
#else
#define REMAINING wanted = journal & ~handled; gone = journal & handled
#endif

/* Drains for good: whatever ends it, it is started again. */
proctype Companion() {
    byte mine, listed, newly, handled, wanted, gone, part;
    byte rounds = 0;
again:
    mine = life; listed = 0; newly = 0; handled = 0; wanted = 0; gone = 0; part = 0;
    do
    :: rounds < ROUNDS ->
        rounds++;
        TAKE(journalLock);
        FINISH;
        STEP(listed = journal);
        RELEASE(journalLock);
#ifdef SEED_REMOVE_BEFORE_STORE
        handled = listed;
#else
        CARRY_OUT;
        handled = listed;
#ifndef SEED_REMOVE_BEFORE_SHOWING
        TAKE(snapshotLock);
        STEP(snapshot = recorded);
        RELEASE(snapshotLock);
#endif
#endif
        TAKE(journalLock);
        FINISH;
        STEP(REMAINING);
#ifndef SEED_REMOVE_BEFORE_STORE
        assert(life != mine || (handled & ~snapshot) == 0);
#endif
        if
        :: wanted == 0 ->
            STEP(truncateJournal());
            STEP(syncJournal())
        :: else ->
#ifndef SEED_NO_COPY
            STEP(nameCopy(wanted, gone));
#ifndef SEED_COPY_NOT_SYNCED
            STEP(syncNames());
#endif
#endif
            REWRITE
        fi;
        RELEASE(journalLock);
#ifdef SEED_REMOVE_BEFORE_STORE
        CARRY_OUT;
#endif
    :: rounds == ROUNDS -> goto done
    od;
dead:
    goto again;
done:
    skip
}

proctype Power() {
    byte part;
    do
    :: atomic { cuts < CUTS -> cuts++; powerCut(); CHECK }
    :: break
    od
}

init {
    atomic {
        run Widget(1);
#if WIDGETS > 1
        run Widget(2);
#endif
        run OlderProgram();
        run Companion();
        run Power()
    };
    /* Once all have ended: no lock is held, and everything acknowledged was carried out or waits. */
    _nr_pr == 1;
    assert(journalLock == NONE && snapshotLock == NONE);
    CHECK
}
