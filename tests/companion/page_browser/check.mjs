// Holds pages against a browser and two judges: node check.mjs FOLDER PAGE...
//
// Each page is valid HTML, and in headless Chromium, light and dark, at three widths: nothing is scrolled sideways,
// the console stays silent, nothing is fetched, axe-core finds nothing, the table is sorted and searched. It is printed
// to PDF. Screenshots and PDFs go to FOLDER. Prints what is wrong and ends with 1 where anything is.

import { readFileSync } from "node:fs";
import { basename, join, resolve } from "node:path";
import { pathToFileURL } from "node:url";
import axe from "axe-core";
import { HtmlValidate } from "html-validate";
import puppeteer from "puppeteer-core";

const widths = [400, 1280, 1920];
const schemes = ["light", "dark"];

// Rules of the standard and of accessibility; those of taste, such as the order of attributes, are none.
const validator = new HtmlValidate({
    extends: ["html-validate:standard", "html-validate:a11y"],
    rules: { "no-trailing-whitespace": "off", "long-title": "off" },
});

let faults = 0;
function fault(page, text) {
    console.log(`${page}: ${text}`);
    ++faults;
}

async function validate(page) {
    const report = await validator.validateString(readFileSync(page, "utf8"), page);
    for (const result of report.results)
        for (const message of result.messages)
            fault(page, `${message.line}:${message.column}: ${message.message} (${message.ruleId})`);
}

async function look(browser, page, width, scheme, folder) {
    const tab = await browser.newPage();
    const where = `${basename(page)} at ${width}, ${scheme}`;
    tab.on("console", (message) => fault(where, `console: ${message.text()}`));
    tab.on("pageerror", (error) => fault(where, `script: ${error.message}`));
    tab.on("request", (request) => {
        if (!request.url().startsWith("file:") && !request.url().startsWith("data:")) fault(where, `fetches ${request.url()}`);
    });
    await tab.setViewport({ width, height: 900, isMobile: width < 600, deviceScaleFactor: 1 });
    await tab.emulateMediaFeatures([{ name: "prefers-color-scheme", value: scheme }]);
    await tab.goto(pathToFileURL(resolve(page)).href);
    const wide = await tab.evaluate(() => document.scrollingElement.scrollWidth - window.innerWidth);
    if (wide > 0) fault(where, `is ${wide} pixels too wide`);
    await tab.screenshot({ path: join(folder, `${basename(page, ".html")}-${width}-${scheme}.png`) });
    await tab.evaluate(readFileSync(new URL(import.meta.resolve("axe-core")), "utf8"));
    const report = await tab.evaluate(() => axe.run(document));
    for (const each of report.violations)
        fault(where, `${each.id}: ${each.help}: ${each.nodes.map((node) => node.target.join(" ")).slice(0, 3).join(", ")}`);
    if (report.passes.length < 10) fault(where, "axe-core has looked at next to nothing");
    return tab;
}

async function use(tab, page) {
    const marks = () =>
        tab.$$eval("#object-table tbody tr", (rows) => rows.map((row) => Number(row.cells[1].textContent.replaceAll(",", ""))));
    const before = await marks();
    if (before.length === 0) return;
    await tab.click("#object-table thead th:nth-child(2) button");
    const wanted = [...before].sort((a, b) => a - b).join();
    if ((await marks()).join() !== wanted) fault(page, "is not sorted by marks");
    if (!(await tab.$("#search"))) return;
    const name = await tab.$eval("#object-table tbody tr th", (cell) => cell.textContent);
    await tab.type("#search", name);
    const shown = await tab.$$eval("#object-table tbody tr", (rows) => rows.filter((row) => !row.hidden).map((row) => row.cells[0].textContent));
    if (shown.length === 0 || shown.length === before.length || !shown.includes(name)) fault(page, `the search for ${name} shows ${shown.length} rows`);
}

const [folder, ...pages] = process.argv.slice(2);
const browser = await puppeteer.launch({
    executablePath: process.env.CHROMIUM ?? "/usr/bin/chromium",
    args: ["--no-sandbox", "--disable-gpu"],
});
for (const page of pages) {
    await validate(page);
    for (const scheme of schemes) {
        for (const width of widths) {
            const tab = await look(browser, page, width, scheme, folder);
            if (scheme === "light" && width === 1280) {
                await tab.pdf({ path: join(folder, `${basename(page, ".html")}.pdf`), format: "A4" });
                await use(tab, page);
            }
            await tab.close();
        }
    }
}
await browser.close();
console.log(`${pages.length} pages at ${widths.join(", ")} pixels, light and dark: ${faults} faults`);
process.exit(faults > 0 || pages.length === 0 ? 1 : 0);
