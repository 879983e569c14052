#include "command/page_style.h"

namespace companion {
namespace {

// Colors have a contrast of 4.5 at least where they are letters, and of 3 where they are dots and lines.
constexpr std::string_view style = R"css(
:root {
    color-scheme: light dark;
    --ground: #f6f7f9; --card: #ffffff; --ink: #1a2029; --soft: #55606f; --line: #d5dae2; --grid: #e6e9ee;
    --link: #0b57b0; --error: #b3261e; --warning: #8a5300; --note: #33627a; --good: #1b6e3c;
    --kept: #2f7d4f; --other: #9aa5b4; --loss: #c2410c;
    --s1: #1f5fb4; --s2: #b4420f; --s3: #0d7a5f; --s4: #8a3aa8; --s5: #a01650;
}
@media (prefers-color-scheme: dark) {
    :root {
        --ground: #11151b; --card: #1a2029; --ink: #e8ecf2; --soft: #a7b2c1; --line: #343d4a; --grid: #262e39;
        --link: #8ab8ff; --error: #ff9a8f; --warning: #f0b354; --note: #8fc6e0; --good: #7fd6a0;
        --kept: #5cb883; --other: #6b7788; --loss: #f08a54;
        --s1: #79aef5; --s2: #f59a6b; --s3: #54cfae; --s4: #d79af0; --s5: #f58ab4;
    }
}
* { box-sizing: border-box; }
html { -webkit-text-size-adjust: 100%; text-size-adjust: 100%; }
body { margin: 0; background: var(--ground); color: var(--ink); font: 1rem/1.5 system-ui, sans-serif; }
header, main, footer { max-width: 76rem; margin: 0 auto; padding: 0 1rem; }
header { padding-top: 1.5rem; }
h1 { margin: 0; font-size: 1.75rem; line-height: 1.2; overflow-wrap: anywhere; }
h2 { margin: 2.5rem 0 .75rem; font-size: 1.25rem; }
h3 { margin: 0 0 .5rem; font-size: 1.05rem; overflow-wrap: anywhere; }
p { margin: .25rem 0 .75rem; }
a { color: var(--link); }
.soft { color: var(--soft); }
nav ul { display: flex; flex-wrap: wrap; gap: .25rem 1.25rem; margin: .75rem 0 0; padding: 0; list-style: none; }
nav a { display: inline-block; padding: .25rem 0; }
.totals { display: flex; flex-wrap: wrap; gap: .75rem; margin: 1.25rem 0 0; }
.totals div, .card { background: var(--card); border: 1px solid var(--line); border-radius: .5rem; }
.totals div { flex: 1 1 9.5rem; padding: .6rem .85rem; }
.totals dt { color: var(--soft); font-size: .875rem; }
.totals dd { margin: 0; font-size: 1.35rem; font-variant-numeric: tabular-nums; overflow-wrap: anywhere; }
.totals .words { font-size: 1.1rem; line-height: 1.35; }
.card { padding: 1rem; margin: 0 0 1rem; }
.error { color: var(--error); } .warning { color: var(--warning); } .note { color: var(--note); }
.good { color: var(--good); }
.flow { margin: 0; padding: 0; list-style: none; }
.flow > li { position: relative; padding: .85rem 1rem; background: var(--card); border: 1px solid var(--line);
    border-radius: .5rem; }
.flow > li + li { margin-top: 1.75rem; }
.flow > li + li::before { content: "\2193"; position: absolute; top: -1.75rem; left: 1rem; color: var(--soft); }
.flow p { display: flex; flex-wrap: wrap; gap: 0 1rem; justify-content: space-between; margin: 0; }
.flow svg { display: block; width: 100%; height: .8rem; margin: .4rem 0; border-radius: .25rem; }
.parts { display: flex; flex-wrap: wrap; gap: 0 1.25rem; margin: 0; padding: 0; list-style: none; font-size: .9375rem; }
.parts i { display: inline-block; width: .7rem; height: .7rem; margin-right: .35rem; border-radius: .15rem; }
.kept { fill: var(--kept); background: var(--kept); } .other { fill: var(--other); background: var(--other); }
.loss { fill: var(--loss); background: var(--loss); }
.findings { margin: 0; padding: 0; list-style: none; }
.findings ul { margin: .25rem 0 0; padding-left: 1.1rem; }
.findings li li { overflow-wrap: anywhere; }
.findings pre { margin: .1rem 0 .4rem; padding: .35rem .5rem; white-space: pre-wrap; overflow-wrap: anywhere; background: var(--ground);
    border-radius: .25rem; font: .8125rem/1.4 ui-monospace, monospace; }
mark { background: none; color: inherit; text-decoration: underline wavy var(--error); text-underline-offset: .2em; }
summary { cursor: pointer; color: var(--link); }
.wide { overflow-x: auto; background: var(--card); border: 1px solid var(--line); border-radius: .5rem; margin: 0 0 1rem; }
.card .wide { margin: 0; }
table { border-collapse: collapse; width: 100%; font-variant-numeric: tabular-nums; }
th, td { padding: .4rem .75rem; text-align: left; white-space: nowrap; border-bottom: 1px solid var(--line); }
tbody tr:last-child > * { border-bottom: 0; }
thead th { color: var(--soft); font-weight: 600; font-size: .875rem; }
tbody th { font-weight: 600; }
.number { text-align: right; }
th button { all: unset; cursor: pointer; }
th button:focus-visible { outline: 2px solid var(--link); outline-offset: 2px; }
th[aria-sort="ascending"] button::after { content: " \2191"; }
th[aria-sort="descending"] button::after { content: " \2193"; }
.search { display: flex; flex-wrap: wrap; align-items: center; gap: .25rem .5rem; margin: 0 0 .5rem; }
input { font: inherit; color: inherit; background: var(--card); border: 1px solid var(--other); border-radius: .35rem;
    padding: .3rem .5rem; max-width: 100%; }
td.words { min-width: 16rem; white-space: normal; overflow-wrap: anywhere; }
.months { display: grid; grid-template-columns: repeat(auto-fill, minmax(11rem, 1fr)); gap: 1rem .75rem; margin: .75rem 0 1rem; }
.month { align-self: start; table-layout: fixed; border-collapse: separate; border-spacing: 1px; padding: .25rem;
    background: var(--card); border: 1px solid var(--line); border-radius: .5rem; }
.month caption { padding: 0 0 .25rem; font-weight: 600; text-align: left; }
.month th, .month td { padding: 0; border: 0; text-align: center; color: var(--soft); font-size: .8125rem; line-height: 1.5rem; }
.month a, .night { border: 1.5px solid; border-radius: .3rem; }
.month a { display: block; text-decoration: none; font-weight: 600; line-height: calc(1.5rem - 3px); }
.month .good a, .night.good { color: var(--good); background: none; }
.month .waiting a, .night.waiting { color: var(--ink); border-style: dashed; }
.month .error a, .night.error { color: var(--card); background: var(--error); border-color: var(--error); }
.month a:hover, .month a:focus-visible { outline: 2px solid var(--link); outline-offset: 1px; }
tr:target > * { background: var(--grid); }
.pictures { display: grid; grid-template-columns: repeat(auto-fit, minmax(min(100%, 24rem), 1fr)); gap: .5rem 1.5rem; }
figure { margin: 0; min-width: 0; max-width: 40rem; break-inside: avoid; }
figcaption { color: var(--soft); font-size: .875rem; }
.chart { display: block; width: 100%; height: auto; }
.chart text { fill: var(--soft); font: 12px system-ui, sans-serif; font-variant-numeric: tabular-nums; }
.chart .title { fill: var(--ink); }
@media (max-width: 32rem) { .chart text { font-size: 14px; } }
.middle { text-anchor: middle; } .end { text-anchor: end; }
.grid { fill: none; stroke: var(--grid); } .frame { fill: none; stroke: var(--line); }
.dot { fill: none; stroke-width: 6; stroke-linecap: round; }
.dot.s2 { stroke-width: 5.5; stroke-linecap: square; }
.dot.s3, .dot.s4 { stroke-width: 1; } .dot.s5 { stroke-width: 2; }
.s1 { stroke: var(--s1); } .s2 { stroke: var(--s2); } .s3 { stroke: var(--s3); fill: var(--s3); }
.s4 { stroke: var(--s4); fill: var(--s4); } .s5 { stroke: var(--s5); }
.chart .error { fill: none; stroke-width: 1.2; opacity: .7; }
.key { stroke: none; } .key.s1 { color: var(--s1); } .key.s2 { color: var(--s2); } .key.s3 { color: var(--s3); }
.key.s4 { color: var(--s4); } .key.s5 { color: var(--s5); }
.track { fill: none; stroke: var(--s1); stroke-width: 1.2; opacity: .6; }
.start { fill: none; stroke: var(--s1); stroke-width: 1.4; } .arrow { fill: var(--s2); }
.scale { fill: none; stroke: var(--ink); stroke-width: 1.4; }
footer { padding-top: 1rem; padding-bottom: 2rem; color: var(--soft); font-size: .875rem; }
@media print {
    :root { color-scheme: light; --ground: #fff; --card: #fff; --ink: #000; --soft: #444; --line: #bbb; --grid: #ddd;
        --link: #000; --error: #b3261e; --warning: #8a5300; --note: #33627a; --good: #1b6e3c;
        --kept: #2f7d4f; --other: #9aa5b4; --loss: #c2410c;
        --s1: #1f5fb4; --s2: #b4420f; --s3: #0d7a5f; --s4: #8a3aa8; --s5: #a01650; }
    body { font-size: 10pt; }
    nav, .search { display: none; }
    .wide { overflow: visible; border: 0; }
    th, td { padding: .15rem .4rem; white-space: normal; }
    .pictures { grid-template-columns: 1fr 1fr; }
    .card, .flow > li, tr, .month { break-inside: avoid; }
    h2, h3 { break-after: avoid; }
    .kept, .other, .loss, .month a, .night, svg { print-color-adjust: exact; -webkit-print-color-adjust: exact; }
}
)css";

constexpr std::string_view script = R"js(
(() => {
    const table = document.getElementById("object-table");
    if (!table) return;
    const body = table.tBodies[0];
    const rows = [...body.rows];
    const key = (row, column) => {
        const text = row.cells[column].textContent.trim();
        const number = parseFloat(text.replaceAll(",", ""));
        return { text, number };
    };
    const order = (a, b, isNumber) => {
        if (!isNumber) return a.text < b.text ? -1 : a.text > b.text ? 1 : 0;
        if (Number.isNaN(a.number) || Number.isNaN(b.number)) return Number.isNaN(a.number) - Number.isNaN(b.number);
        return a.number - b.number;
    };
    [...table.tHead.rows[0].cells].forEach((head, column) => {
        const button = document.createElement("button");
        button.type = "button";
        button.append(...head.childNodes);
        head.append(button);
        button.addEventListener("click", () => {
            const down = head.getAttribute("aria-sort") === "ascending";
            for (const each of table.tHead.rows[0].cells) each.removeAttribute("aria-sort");
            head.setAttribute("aria-sort", down ? "descending" : "ascending");
            const isNumber = head.classList.contains("number");
            rows.sort((a, b) => (down ? -1 : 1) * order(key(a, column), key(b, column), isNumber));
            body.append(...rows);
        });
    });
    if (rows.length < 10) return;
    const search = document.createElement("p");
    search.className = "search";
    const label = document.createElement("label");
    label.htmlFor = "search";
    label.textContent = "Search";
    const input = document.createElement("input");
    input.type = "search";
    input.id = "search";
    input.autocomplete = "off";
    const shown = document.createElement("span");
    shown.className = "soft";
    shown.setAttribute("aria-live", "polite");
    input.addEventListener("input", () => {
        const wanted = input.value.trim().toLowerCase();
        let count = 0;
        for (const row of rows) {
            row.hidden = !row.cells[0].textContent.toLowerCase().includes(wanted);
            count += row.hidden ? 0 : 1;
        }
        shown.textContent = wanted ? `${count} of ${rows.length}` : "";
    });
    search.append(label, input, shown);
    table.parentElement.before(search);
})();
)js";

} // namespace

std::string_view pageStyle()
{
    return style;
}

std::string_view pageScript()
{
    return script;
}

} // namespace companion
