// Ways of the keyboard through many nodes, of which the tabulator stops at one only.

/** The tabulator stops at this one of the nodes, or at that which is next to it. */
export function setStop(nodes, wanted) {
    const stop = Math.min(Math.max(wanted, 0), nodes.length - 1);
    nodes.forEach((node, index) => {
        const tabIndex = index === stop ? 0 : -1;
        if (node.tabIndex !== tabIndex) node.tabIndex = tabIndex;
    });
}

/** Moves the focus by as many nodes as the key has steps; Home and End go to the first and last. */
export function walk(event, nodes, steps) {
    if (event.altKey || event.ctrlKey || event.metaKey) return;
    const from = nodes.indexOf(document.activeElement);
    const to = { Home: 0, End: nodes.length - 1 }[event.key] ?? from + steps[event.key];
    if (Number.isNaN(to)) return;
    event.preventDefault();
    nodes[to]?.focus();
}
