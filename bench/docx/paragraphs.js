// 1,000 paragraphs with a bold word in each, 100 of them headings, by a library that writes the file itself.
//
//     node paragraphs.js FILE
//
// Prints the seconds from the first paragraph to the saved document.
const fs = require("fs");
const { Document, HeadingLevel, Packer, Paragraph, TextRun } = require("docx");

const began = process.hrtime.bigint();
const children = [];
for (let number = 1; number <= 1000; ++number) {
    const heading = number % 10 === 1;
    children.push(
        new Paragraph({
            heading: heading ? HeadingLevel.HEADING_1 : undefined,
            children: [
                new TextRun(`Paragraph ${number} has a `),
                new TextRun({ text: "bold", bold: true }),
                new TextRun(" word in it."),
            ],
        })
    );
}
Packer.toBuffer(new Document({ sections: [{ children }] })).then((bytes) => {
    fs.writeFileSync(process.argv[2], bytes);
    const seconds = Number(process.hrtime.bigint() - began) / 1e9;
    console.log(seconds.toFixed(3));
});
