// The pointer on rows of the octet map.

/** The index of the row in which a node stands, -1 where in none. */
export function rowOf(node) {
    return Number(node.closest('[data-row]')?.dataset.row ?? -1);
}

/**
 * Tells on which row the pointer is, -1 for none, when somebody moves it. Where the page scrolls under one that
 * rests, as it does while the keyboard walks, that is then over another row, but was not moved.
 */
export function listenToPointer(element, onPoint) {
    element.addEventListener('pointermove', ({ target, pointerType }) => {
        if (pointerType !== 'touch') onPoint(rowOf(target));
    });
    element.addEventListener('pointerleave', () => onPoint(-1));
}
