<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="ar" sourcelanguage="en">
<context>
    <name>AtomicFile</name>
    <message>
        <source>%1 is not a regular file.</source>
        <translation>⁦%1⁩ ليس ملفًا عاديًا.</translation>
    </message>
</context>
<context>
    <name>BackdropCatalogue</name>
    <message>
        <source>Lagoon</source>
        <translation>بحيرة شاطئية</translation>
    </message>
    <message>
        <source>Dawn</source>
        <translation>فجر</translation>
    </message>
    <message>
        <source>Dusk</source>
        <translation>غسق</translation>
    </message>
    <message>
        <source>Orchid</source>
        <translation>أوركيد</translation>
    </message>
    <message>
        <source>Meadow</source>
        <translation>مرج</translation>
    </message>
    <message>
        <source>Glacier</source>
        <translation>جليد</translation>
    </message>
    <message>
        <source>Ember</source>
        <translation>جمر</translation>
    </message>
    <message>
        <source>Peach</source>
        <translation>خوخ</translation>
    </message>
    <message>
        <source>Lavender</source>
        <translation>خزامى</translation>
    </message>
    <message>
        <source>Indigo</source>
        <translation>نيلي</translation>
    </message>
    <message>
        <source>Midnight</source>
        <translation>منتصف الليل</translation>
    </message>
    <message>
        <source>Northern light</source>
        <translation>ضوء الشمال</translation>
    </message>
    <message>
        <source>Coral reef</source>
        <translation>شعاب مرجانية</translation>
    </message>
    <message>
        <source>Mint</source>
        <translation>نعناع</translation>
    </message>
    <message>
        <source>Honey</source>
        <translation>عسل</translation>
    </message>
    <message>
        <source>Berry</source>
        <translation>توت</translation>
    </message>
    <message>
        <source>Iris</source>
        <translation>سوسن</translation>
    </message>
    <message>
        <source>Sand</source>
        <translation>رمل</translation>
    </message>
    <message>
        <source>Fog</source>
        <translation>ضباب</translation>
    </message>
    <message>
        <source>Graphite</source>
        <translation>غرافيت</translation>
    </message>
    <message>
        <source>Dunes</source>
        <translation>كثبان</translation>
    </message>
    <message>
        <source>Paper</source>
        <translation>ورق</translation>
    </message>
    <message>
        <source>Waves</source>
        <translation>أمواج</translation>
    </message>
    <message>
        <source>Mist</source>
        <translation>سديم</translation>
    </message>
    <message>
        <source>Aurora</source>
        <translation>شفق قطبي</translation>
    </message>
    <message>
        <source>Silk</source>
        <translation>حرير</translation>
    </message>
    <message>
        <source>Mesh</source>
        <translation>شبكة</translation>
    </message>
    <message>
        <source>Horizon</source>
        <translation>أفق</translation>
    </message>
    <message>
        <source>White</source>
        <translation>أبيض</translation>
    </message>
    <message>
        <source>Pearl</source>
        <translation>لؤلؤي</translation>
    </message>
    <message>
        <source>Silver</source>
        <translation>فضي</translation>
    </message>
    <message>
        <source>Slate</source>
        <translation>أردوازي</translation>
    </message>
    <message>
        <source>Charcoal</source>
        <translation>فحمي</translation>
    </message>
    <message>
        <source>Black</source>
        <translation>أسود</translation>
    </message>
    <message>
        <source>Coral</source>
        <translation>مرجاني</translation>
    </message>
    <message>
        <source>Apricot</source>
        <translation>مشمشي</translation>
    </message>
    <message>
        <source>Butter</source>
        <translation>زبدي</translation>
    </message>
    <message>
        <source>Sage</source>
        <translation>أخضر مريمي</translation>
    </message>
    <message>
        <source>Teal</source>
        <translation>أزرق مخضر</translation>
    </message>
    <message>
        <source>Sky</source>
        <translation>سماوي</translation>
    </message>
    <message>
        <source>Lilac</source>
        <translation>ليلكي</translation>
    </message>
</context>
<context>
    <name>BackdropLooks</name>
    <message>
        <source>Hover</source>
        <translation>تحليق</translation>
    </message>
    <message>
        <source>Paper</source>
        <translation>ورق</translation>
    </message>
    <message>
        <source>Stage</source>
        <translation>مسرح</translation>
    </message>
    <message>
        <source>Window Light</source>
        <translation>ضوء نافذة</translation>
    </message>
    <message>
        <source>Passe-Partout</source>
        <translation>باسبارتو</translation>
    </message>
    <message>
        <source>Glass Rim</source>
        <translation>حافة زجاجية</translation>
    </message>
    <message>
        <source>Slide</source>
        <translation>شريحة</translation>
    </message>
    <message>
        <source>Square</source>
        <translation>مربع</translation>
    </message>
</context>
<context>
    <name>CardChrome</name>
    <message>
        <source>Copy</source>
        <translation>نسخ</translation>
    </message>
    <message>
        <source>Save</source>
        <translation>حفظ</translation>
    </message>
    <message>
        <source>Edit</source>
        <translation>تحرير</translation>
    </message>
    <message>
        <source>Pin to Screen</source>
        <translation>تثبيت على الشاشة</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>إغلاق</translation>
    </message>
    <message>
        <source>More</source>
        <translation>المزيد</translation>
    </message>
</context>
<context>
    <name>CardsFeature</name>
    <message>
        <source>There is no closed card that could come back</source>
        <translation>لا توجد بطاقة مغلقة يمكن إعادتها</translation>
    </message>
    <message>
        <source>Text copied</source>
        <translation>تم نسخ النص</translation>
    </message>
</context>
<context>
    <name>CommandTable</name>
    <message>
        <source>Capture Area</source>
        <translation>التقاط منطقة</translation>
    </message>
    <message>
        <source>Capture Window</source>
        <translation>التقاط نافذة</translation>
    </message>
    <message>
        <source>Capture Full Screen</source>
        <translation>التقاط الشاشة كاملة</translation>
    </message>
    <message>
        <source>Capture Last Area</source>
        <translation>التقاط آخر منطقة</translation>
    </message>
    <message>
        <source>Capture with Self-Timer</source>
        <translation>التقاط بمؤقت</translation>
    </message>
    <message>
        <source>Extract Text</source>
        <translation>استخراج النص</translation>
    </message>
    <message>
        <source>Settings…</source>
        <translation>الإعدادات…</translation>
    </message>
    <message>
        <source>Pick Color</source>
        <translation>انتقاء لون</translation>
    </message>
    <message>
        <source>Recent Captures</source>
        <translation>اللقطات الأخيرة</translation>
    </message>
    <message>
        <source>Reopen Closed Capture</source>
        <translation>إعادة فتح اللقطة المغلقة</translation>
    </message>
    <message>
        <source>Feedback…</source>
        <translation>ملاحظات…</translation>
    </message>
    <message>
        <source>Measure Screen</source>
        <translation>قياس الشاشة</translation>
    </message>
</context>
<context>
    <name>DesktopSession</name>
    <message>
        <source>“Plasma (X11)”</source>
        <translation>«Plasma (X11)»</translation>
    </message>
    <message>
        <source>“Ubuntu on Xorg”</source>
        <translation>«Ubuntu on Xorg»</translation>
    </message>
    <message>
        <source>“GNOME on Xorg”</source>
        <translation>«GNOME on Xorg»</translation>
    </message>
    <message>
        <source>one with “X11” or “Xorg” in its name</source>
        <translation>جلسة في اسمها «X11» أو «Xorg»</translation>
    </message>
    <message>
        <source>Log out, choose an X11 (Xorg) session at the login screen and start Kovrel there.</source>
        <translation>سجّل الخروج، واختر جلسة X11 (Xorg) في شاشة الدخول، وشغّل Kovrel هناك.</translation>
    </message>
    <message>
        <source>Kovrel can&apos;t capture a Wayland session yet.</source>
        <translation>لا يستطيع Kovrel الالتقاط في جلسة Wayland بعد.</translation>
    </message>
    <message>
        <source>Log out of this session.</source>
        <translation>سجّل الخروج من هذه الجلسة.</translation>
    </message>
    <message>
        <source>At the login screen, choose %1 from the list of sessions.</source>
        <translation>في شاشة الدخول، اختر %1 من قائمة الجلسات.</translation>
    </message>
    <message>
        <source>Log in, and start Kovrel again.</source>
        <translation>سجّل الدخول وشغّل Kovrel من جديد.</translation>
    </message>
</context>
<context>
    <name>EditorSaves</name>
    <message>
        <source>This picture has no file yet.</source>
        <translation>لا يوجد ملف لهذه الصورة بعد.</translation>
    </message>
</context>
<context>
    <name>EntryTexts</name>
    <message>
        <source>Capture</source>
        <translation>لقطة</translation>
    </message>
    <message>
        <source>Today %1</source>
        <translation>اليوم %1</translation>
    </message>
    <message>
        <source>Yesterday %1</source>
        <translation>أمس %1</translation>
    </message>
</context>
<context>
    <name>HistoryEditor</name>
    <message>
        <source>%1 can&apos;t be written: its picture can&apos;t be encoded.</source>
        <translation>تعذّرت كتابة ⁦%1⁩: لا يمكن ترميز صورته.</translation>
    </message>
    <message>
        <source>The capture is not in the history any more.</source>
        <translation>لم تعد اللقطة موجودة في السجل.</translation>
    </message>
</context>
<context>
    <name>HistoryFeature</name>
    <message>
        <source>kept as %1</source>
        <translation>حُفظت باسم ⁦%1⁩</translation>
    </message>
    <message>
        <source>The capture could not be kept in the history</source>
        <translation>تعذّر حفظ اللقطة في السجل</translation>
    </message>
    <message>
        <source>This program can&apos;t read text.</source>
        <translation>لا يستطيع هذا البرنامج قراءة النصوص.</translation>
    </message>
</context>
<context>
    <name>HistoryIndexFile</name>
    <message>
        <source>The index in %1 can&apos;t be read now.</source>
        <translation>تتعذّر قراءة الفهرس في ⁦%1⁩ الآن.</translation>
    </message>
    <message>
        <source>The folder %1 can&apos;t be read.</source>
        <translation>تتعذّر قراءة المجلد ⁦%1⁩.</translation>
    </message>
    <message>
        <source>The folder %1 can&apos;t be made.</source>
        <translation>يتعذّر إنشاء المجلد ⁦%1⁩.</translation>
    </message>
    <message>
        <source>What is damaged in %1 can&apos;t be put aside.</source>
        <translation>يتعذّر عزل الجزء التالف في ⁦%1⁩.</translation>
    </message>
</context>
<context>
    <name>HistoryList</name>
    <message>
        <source>Blue</source>
        <translation>أزرق</translation>
    </message>
    <message>
        <source>Cyan</source>
        <translation>سماوي</translation>
    </message>
    <message>
        <source>Teal</source>
        <translation>أزرق مخضر</translation>
    </message>
    <message>
        <source>Green</source>
        <translation>أخضر</translation>
    </message>
    <message>
        <source>Yellow</source>
        <translation>أصفر</translation>
    </message>
    <message>
        <source>Orange</source>
        <translation>برتقالي</translation>
    </message>
    <message>
        <source>Red</source>
        <translation>أحمر</translation>
    </message>
    <message>
        <source>Pink</source>
        <translation>وردي</translation>
    </message>
    <message>
        <source>Purple</source>
        <translation>أرجواني</translation>
    </message>
    <message>
        <source>Graphite</source>
        <translation>غرافيتي</translation>
    </message>
</context>
<context>
    <name>HistoryLists</name>
    <message>
        <source>Untitled</source>
        <translation>بلا عنوان</translation>
    </message>
</context>
<context>
    <name>HistoryRecorder</name>
    <message>
        <source>The capture can&apos;t be encoded as PNG.</source>
        <translation>يتعذّر ترميز اللقطة بصيغة PNG.</translation>
    </message>
</context>
<context>
    <name>HistorySearch</name>
    <message>
        <source>Area</source>
        <translation>منطقة</translation>
    </message>
    <message>
        <source>Window</source>
        <translation>نافذة</translation>
    </message>
    <message>
        <source>Full Screen</source>
        <translation>الشاشة كاملة</translation>
    </message>
    <message>
        <source>Last Area</source>
        <translation>آخر منطقة</translation>
    </message>
    <message>
        <source>Extracted Text</source>
        <translation>نص مستخرج</translation>
    </message>
    <message>
        <source>Self-Timer</source>
        <translation>المؤقت</translation>
    </message>
</context>
<context>
    <name>ImageCodec</name>
    <message>
        <source>This is no picture that Kovrel can read.</source>
        <translation>ليست هذه صورة يمكن لـ Kovrel قراءتها.</translation>
    </message>
    <message>
        <source>The picture is damaged or too large.</source>
        <translation>الصورة تالفة أو كبيرة جدًا.</translation>
    </message>
    <message>
        <source>The picture cannot be read: %1</source>
        <translation>تتعذّر قراءة الصورة: %1</translation>
    </message>
    <message>
        <source>There is not enough memory.</source>
        <translation>لا توجد ذاكرة كافية.</translation>
    </message>
    <message>
        <source>There is no picture to encode.</source>
        <translation>لا توجد صورة لترميزها.</translation>
    </message>
</context>
<context>
    <name>IncomingPictures</name>
    <message>
        <source>This is no picture that can be read.</source>
        <translation>ليست هذه صورة يمكن قراءتها.</translation>
    </message>
    <message>
        <source>%1 is no picture that can be read.</source>
        <translation>الملف ⁨%1⁩ ليس صورة يمكن قراءتها.</translation>
    </message>
    <message>
        <source>These are more than %1 pictures; the others were left out.</source>
        <translation>عدد الصور أكثر من %1، فاستُبعدت البقية.</translation>
    </message>
</context>
<context>
    <name>KeyCombo</name>
    <message>
        <source>Return</source>
        <translation>Return</translation>
    </message>
    <message>
        <source>Tab</source>
        <translation>Tab</translation>
    </message>
    <message>
        <source>Space</source>
        <translation>المسافة</translation>
    </message>
    <message>
        <source>Backspace</source>
        <translation>Backspace</translation>
    </message>
    <message>
        <source>Escape</source>
        <translation>Esc</translation>
    </message>
    <message>
        <source>Enter</source>
        <translation>Enter</translation>
    </message>
    <message>
        <source>Delete</source>
        <translation>Delete</translation>
    </message>
    <message>
        <source>Insert</source>
        <translation>Insert</translation>
    </message>
    <message>
        <source>Home</source>
        <translation>Home</translation>
    </message>
    <message>
        <source>End</source>
        <translation>End</translation>
    </message>
    <message>
        <source>PageUp</source>
        <translation>Page Up</translation>
    </message>
    <message>
        <source>PageDown</source>
        <translation>Page Down</translation>
    </message>
    <message>
        <source>Left</source>
        <translation>يسار</translation>
    </message>
    <message>
        <source>Right</source>
        <translation>يمين</translation>
    </message>
    <message>
        <source>Down</source>
        <translation>أسفل</translation>
    </message>
    <message>
        <source>Up</source>
        <translation>أعلى</translation>
    </message>
    <message>
        <source>Print</source>
        <translation>Print</translation>
    </message>
    <message>
        <source>ScrollLock</source>
        <translation>ScrollLock</translation>
    </message>
    <message>
        <source>Pause</source>
        <translation>Pause</translation>
    </message>
    <message>
        <source>Menu</source>
        <translation>Menu</translation>
    </message>
    <message>
        <source>VolumeUp</source>
        <translation>رفع الصوت</translation>
    </message>
    <message>
        <source>VolumeDown</source>
        <translation>خفض الصوت</translation>
    </message>
    <message>
        <source>VolumeMute</source>
        <translation>كتم الصوت</translation>
    </message>
    <message>
        <source>MediaPlay</source>
        <translation>تشغيل</translation>
    </message>
    <message>
        <source>MediaStop</source>
        <translation>إيقاف</translation>
    </message>
    <message>
        <source>MediaNext</source>
        <translation>التالي</translation>
    </message>
    <message>
        <source>MediaPrevious</source>
        <translation>السابق</translation>
    </message>
    <message>
        <source>Ctrl</source>
        <translation>Ctrl</translation>
    </message>
    <message>
        <source>Alt</source>
        <translation>Alt</translation>
    </message>
    <message>
        <source>Shift</source>
        <translation>Shift</translation>
    </message>
    <message>
        <source>Super</source>
        <translation>Super</translation>
    </message>
</context>
<context>
    <name>Kovrel::AccountFeature</name>
    <message>
        <source>The answer does not fit, or could not be stored</source>
        <translation>الرد غير مطابق، أو تعذّر تخزينه</translation>
    </message>
    <message>
        <source>Signing in failed</source>
        <translation>فشل تسجيل الدخول</translation>
    </message>
    <message>
        <source>Signing out failed</source>
        <translation>تعذّر تسجيل الخروج</translation>
    </message>
</context>
<context>
    <name>Kovrel::AlignmentPad</name>
    <message>
        <source>Position</source>
        <translation>الموضع</translation>
    </message>
    <message>
        <source>Top Left</source>
        <translation>أعلى اليسار</translation>
    </message>
    <message>
        <source>Top</source>
        <translation>الأعلى</translation>
    </message>
    <message>
        <source>Top Right</source>
        <translation>أعلى اليمين</translation>
    </message>
    <message>
        <source>Left</source>
        <translation>اليسار</translation>
    </message>
    <message>
        <source>Middle</source>
        <translation>الوسط</translation>
    </message>
    <message>
        <source>Right</source>
        <translation>اليمين</translation>
    </message>
    <message>
        <source>Bottom Left</source>
        <translation>أسفل اليسار</translation>
    </message>
    <message>
        <source>Bottom</source>
        <translation>الأسفل</translation>
    </message>
    <message>
        <source>Bottom Right</source>
        <translation>أسفل اليمين</translation>
    </message>
</context>
<context>
    <name>Kovrel::AnnotationCanvasView</name>
    <message>
        <source>Canvas</source>
        <translation>مساحة الرسم</translation>
    </message>
</context>
<context>
    <name>Kovrel::BackdropControls</name>
    <message>
        <source>Automatic</source>
        <translation>تلقائي</translation>
    </message>
    <message>
        <source>Layout</source>
        <translation>التخطيط</translation>
    </message>
    <message>
        <source>Padding</source>
        <translation>الحشو</translation>
    </message>
    <message>
        <source>Corners</source>
        <translation>الزوايا</translation>
    </message>
    <message>
        <source>Blur</source>
        <translation>التمويه</translation>
    </message>
    <message>
        <source>Even out margins</source>
        <translation>موازنة الهوامش</translation>
    </message>
    <message>
        <source>Shadow</source>
        <translation>الظل</translation>
    </message>
    <message>
        <source>Frame</source>
        <translation>الإطار</translation>
    </message>
    <message>
        <source>Shape</source>
        <translation>نسبة الأبعاد</translation>
    </message>
    <message>
        <source>Position</source>
        <translation>الموضع</translation>
    </message>
    <message>
        <source>Light</source>
        <translation>الضوء</translation>
    </message>
    <message>
        <source>None</source>
        <translation>بلا</translation>
    </message>
    <message>
        <source>Subtle</source>
        <translation>خفيف</translation>
    </message>
    <message>
        <source>Soft</source>
        <translation>ناعم</translation>
    </message>
    <message>
        <source>Deep</source>
        <translation>عميق</translation>
    </message>
    <message>
        <source>Kind</source>
        <translation>النوع</translation>
    </message>
    <message>
        <source>Strength</source>
        <translation>الشدة</translation>
    </message>
    <message>
        <source>Width</source>
        <translation>العرض</translation>
    </message>
    <message>
        <source>Colour of the Frame</source>
        <translation>لون الإطار</translation>
    </message>
    <message>
        <source>Colour of the page</source>
        <translation>بلون الصفحة</translation>
    </message>
</context>
<context>
    <name>Kovrel::BackdropFills</name>
    <message>
        <source>Looks</source>
        <translation>المظاهر</translation>
    </message>
    <message>
        <source>Gradients</source>
        <translation>التدرجات</translation>
    </message>
    <message>
        <source>Pictures</source>
        <translation>الصور</translation>
    </message>
    <message>
        <source>Colours</source>
        <translation>الألوان</translation>
    </message>
    <message>
        <source>No Backdrop</source>
        <translation>بلا خلفية</translation>
    </message>
    <message>
        <source>Save This Backdrop…</source>
        <translation>حفظ هذه الخلفية…</translation>
    </message>
    <message>
        <source>Add Colour…</source>
        <translation>إضافة لون…</translation>
    </message>
    <message>
        <source>Add Picture…</source>
        <translation>إضافة صورة…</translation>
    </message>
    <message>
        <source>Rename…</source>
        <translation>إعادة التسمية…</translation>
    </message>
    <message>
        <source>Rename Backdrop</source>
        <translation>إعادة تسمية الخلفية</translation>
    </message>
    <message>
        <source>Delete</source>
        <translation>حذف</translation>
    </message>
    <message>
        <source>Remove “%1”</source>
        <translation>إزالة «%1»</translation>
    </message>
    <message>
        <source>Hide “%1”</source>
        <translation>إخفاء «%1»</translation>
    </message>
    <message>
        <source>Show All Hidden</source>
        <translation>إظهار كل ما أُخفي</translation>
    </message>
    <message>
        <source>Name:</source>
        <translation>الاسم:</translation>
    </message>
    <message>
        <source>Save Backdrop</source>
        <translation>حفظ الخلفية</translation>
    </message>
    <message>
        <source>My Backdrop %1</source>
        <translation>خلفيتي %1</translation>
    </message>
    <message>
        <source>Add Picture</source>
        <translation>إضافة صورة</translation>
    </message>
</context>
<context>
    <name>Kovrel::BackdropPanel</name>
    <message>
        <source>Backdrop</source>
        <translation>الخلفية</translation>
    </message>
</context>
<context>
    <name>Kovrel::CanvasSources</name>
    <message>
        <source>The picture is not shown</source>
        <translation>تعذّر عرض الصورة</translation>
    </message>
    <message>
        <source>%1 is no picture that can be read.</source>
        <translation>الملف ⁨%1⁩ ليس صورة يمكن قراءتها.</translation>
    </message>
</context>
<context>
    <name>Kovrel::CaptureOutput</name>
    <message>
        <source>%1; kept as %2</source>
        <translation>%1؛ حُفظت باسم ⁦%2⁩</translation>
    </message>
    <message>
        <source>%1 is no folder</source>
        <translation>⁦%1⁩ ليس مجلدًا</translation>
    </message>
    <message>
        <source>The folder %1 is not there</source>
        <translation>المجلد ⁦%1⁩ غير موجود</translation>
    </message>
</context>
<context>
    <name>Kovrel::CapturePage</name>
    <message>
        <source>Self-Timer</source>
        <translation>المؤقت</translation>
    </message>
    <message>
        <source>Screen</source>
        <translation>الشاشة</translation>
    </message>
    <message>
        <source>Freeze the screen while selecting</source>
        <translation>تجميد الشاشة أثناء التحديد</translation>
    </message>
    <message>
        <source>Videos and menus stand still. Without it the screen lives on until you let go.</source>
        <translation>تتوقف مقاطع الفيديو والقوائم عن الحركة. وبدون ذلك تبقى الشاشة حيّة حتى تُفلت الزر.</translation>
    </message>
    <message>
        <source>still live overlay area</source>
        <translation>تجميد ثابت حية مباشر تراكب منطقة</translation>
    </message>
    <message>
        <source>Show the pointer in full-screen captures</source>
        <translation>إظهار المؤشر في لقطات الشاشة كاملة</translation>
    </message>
    <message>
        <source>mouse cursor</source>
        <translation>مؤشر الفأرة ماوس</translation>
    </message>
    <message>
        <source>Hide Kovrel&apos;s own windows during captures</source>
        <translation>إخفاء نوافذ Kovrel نفسه أثناء الالتقاط</translation>
    </message>
    <message>
        <source>Cards and messages step aside. Pinned captures stay: you have put them there.</source>
        <translation>تتنحّى البطاقات والرسائل جانبًا. أما اللقطات المثبّتة فتبقى لأنك وضعتها هناك.</translation>
    </message>
    <message>
        <source>chrome cards toasts recording</source>
        <translation>نوافذ بطاقات رسائل إشعارات تسجيل</translation>
    </message>
    <message>
        <source>1 second</source>
        <translation>ثانية واحدة</translation>
    </message>
    <message>
        <source>%1 seconds</source>
        <translation>%1 ث</translation>
    </message>
    <message>
        <source>Count down from</source>
        <translation>العد التنازلي من</translation>
    </message>
    <message>
        <source>For menus and whatever closes when the keyboard is used. Escape ends the count.</source>
        <translation>للقوائم وكل ما يُغلق عند استخدام لوحة المفاتيح. يُنهي Esc العد.</translation>
    </message>
    <message>
        <source>delay countdown timed seconds</source>
        <translation>تأخير عد تنازلي مؤقت ثوان ثانية</translation>
    </message>
    <message>
        <source>Windows</source>
        <translation>النوافذ</translation>
    </message>
    <message>
        <source>Set windows on</source>
        <translation>وضع النوافذ على</translation>
    </message>
    <message>
        <source>The desktop picture</source>
        <translation>صورة سطح المكتب</translation>
    </message>
    <message>
        <source>A colour</source>
        <translation>لون</translation>
    </message>
    <message>
        <source>Nothing, with shadow</source>
        <translation>لا شيء، مع ظل</translation>
    </message>
    <message>
        <source>Nothing, no shadow</source>
        <translation>لا شيء، بلا ظل</translation>
    </message>
    <message>
        <source>What surrounds a window that was captured by a click.</source>
        <translation>ما يحيط بالنافذة التي تُلتقط بالنقر.</translation>
    </message>
    <message>
        <source>background wallpaper transparent shadow trim backdrop</source>
        <translation>خلفية ورق حائط شفاف ظل اقتصاص</translation>
    </message>
    <message>
        <source>Colour behind windows</source>
        <translation>اللون خلف النوافذ</translation>
    </message>
    <message>
        <source>background solid backdrop color</source>
        <translation>خلفية لون مصمت سادة</translation>
    </message>
</context>
<context>
    <name>Kovrel::CardActions</name>
    <message>
        <source>The picture of this capture can&apos;t be read</source>
        <translation>تتعذّر قراءة صورة هذه اللقطة</translation>
    </message>
</context>
<context>
    <name>Kovrel::CardChrome</name>
    <message>
        <source>Let It Close by Itself</source>
        <translation>السماح بالإغلاق تلقائيًا</translation>
    </message>
    <message>
        <source>Keep Until Closed</source>
        <translation>إبقاء حتى الإغلاق</translation>
    </message>
    <message>
        <source>Saved</source>
        <translation>تم الحفظ</translation>
    </message>
    <message>
        <source>Saving…</source>
        <translation>جارٍ الحفظ…</translation>
    </message>
    <message>
        <source>Save</source>
        <translation>حفظ</translation>
    </message>
</context>
<context>
    <name>Kovrel::CardPanel</name>
    <message>
        <source>Capture</source>
        <translation>لقطة</translation>
    </message>
    <message>
        <source>Copied</source>
        <translation>تم النسخ</translation>
    </message>
</context>
<context>
    <name>Kovrel::CardQuickActionsMenu</name>
    <message>
        <source>Saved</source>
        <translation>تم الحفظ</translation>
    </message>
    <message>
        <source>Copy</source>
        <translation>نسخ</translation>
    </message>
    <message>
        <source>Save</source>
        <translation>حفظ</translation>
    </message>
    <message>
        <source>Edit</source>
        <translation>تحرير</translation>
    </message>
    <message>
        <source>Pin to Screen</source>
        <translation>تثبيت على الشاشة</translation>
    </message>
    <message>
        <source>Rotate Left</source>
        <translation>تدوير إلى اليسار</translation>
    </message>
    <message>
        <source>Rotate Right</source>
        <translation>تدوير إلى اليمين</translation>
    </message>
    <message>
        <source>Preview</source>
        <translation>معاينة</translation>
    </message>
    <message>
        <source>Show in Files</source>
        <translation>إظهار في مدير الملفات</translation>
    </message>
    <message>
        <source>Open With</source>
        <translation>فتح باستخدام</translation>
    </message>
    <message>
        <source>Open in Mail…</source>
        <translation>فتح في البريد…</translation>
    </message>
    <message>
        <source>Temporarily Hide</source>
        <translation>إخفاء مؤقت</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>إغلاق</translation>
    </message>
    <message>
        <source>Close All</source>
        <translation>إغلاق الكل</translation>
    </message>
</context>
<context>
    <name>Kovrel::CardsPage</name>
    <message>
        <source>Cards</source>
        <translation>البطاقات</translation>
    </message>
    <message>
        <source>Corner of the screen</source>
        <translation>زاوية الشاشة</translation>
    </message>
    <message>
        <source>Where cards pile up.</source>
        <translation>حيث تتراكم البطاقات.</translation>
    </message>
    <message>
        <source>position place preview left right top bottom pile</source>
        <translation>موضع مكان معاينة يسار يمين أعلى أسفل تراكم</translation>
    </message>
    <message>
        <source>Follow the pointer to its screen</source>
        <translation>اتباع المؤشر إلى شاشته</translation>
    </message>
    <message>
        <source>Otherwise cards appear on the primary screen.</source>
        <translation>وإلا تظهر البطاقات على الشاشة الرئيسية.</translation>
    </message>
    <message>
        <source>mouse display monitor preview</source>
        <translation>فأرة ماوس شاشة عرض معاينة</translation>
    </message>
    <message>
        <source>When the time is up</source>
        <translation>عند انتهاء الوقت</translation>
    </message>
    <message>
        <source>Close the card</source>
        <translation>إغلاق البطاقة</translation>
    </message>
    <message>
        <source>Save the capture, then close</source>
        <translation>حفظ اللقطة ثم الإغلاق</translation>
    </message>
    <message>
        <source>countdown auto-close save preview</source>
        <translation>عد تنازلي إغلاق تلقائي حفظ معاينة</translation>
    </message>
    <message>
        <source>Close by themselves</source>
        <translation>الإغلاق التلقائي</translation>
    </message>
    <message>
        <source>countdown auto-close duration seconds keep preview</source>
        <translation>عد تنازلي إغلاق تلقائي مدة ثوان إبقاء معاينة</translation>
    </message>
</context>
<context>
    <name>Kovrel::ChoiceButton</name>
    <message>
        <source>Custom</source>
        <translation>مخصص</translation>
    </message>
</context>
<context>
    <name>Kovrel::CodeMenu</name>
    <message>
        <source>Open Link</source>
        <translation>فتح الرابط</translation>
    </message>
    <message>
        <source>Copy Text</source>
        <translation>نسخ النص</translation>
    </message>
</context>
<context>
    <name>Kovrel::CodePill</name>
    <message>
        <source>QR code: %1</source>
        <translation>رمز QR: ⁨%1⁩</translation>
    </message>
</context>
<context>
    <name>Kovrel::ColorWell</name>
    <message>
        <source>Colour</source>
        <translation>اللون</translation>
    </message>
    <message>
        <source>several</source>
        <translation>عدة ألوان</translation>
    </message>
    <message>
        <source>Forget %1</source>
        <translation>إزالة ⁦%1⁩ من المحفوظات</translation>
    </message>
    <message>
        <source>Keep %1</source>
        <translation>الاحتفاظ بـ ⁦%1⁩</translation>
    </message>
    <message>
        <source>Other Colour…</source>
        <translation>لون آخر…</translation>
    </message>
    <message>
        <source>Pick from Screen</source>
        <translation>التقاط من الشاشة</translation>
    </message>
    <message>
        <source>Red</source>
        <translation>أحمر</translation>
    </message>
    <message>
        <source>Orange</source>
        <translation>برتقالي</translation>
    </message>
    <message>
        <source>Yellow</source>
        <translation>أصفر</translation>
    </message>
    <message>
        <source>Green</source>
        <translation>أخضر</translation>
    </message>
    <message>
        <source>Teal</source>
        <translation>أزرق مخضر</translation>
    </message>
    <message>
        <source>Blue</source>
        <translation>أزرق</translation>
    </message>
    <message>
        <source>Purple</source>
        <translation>أرجواني</translation>
    </message>
    <message>
        <source>Pink</source>
        <translation>وردي</translation>
    </message>
    <message>
        <source>White</source>
        <translation>أبيض</translation>
    </message>
    <message>
        <source>Black</source>
        <translation>أسود</translation>
    </message>
</context>
<context>
    <name>Kovrel::CornerField</name>
    <message>
        <source>Top left</source>
        <translation>أعلى اليسار</translation>
    </message>
    <message>
        <source>Top right</source>
        <translation>أعلى اليمين</translation>
    </message>
    <message>
        <source>Bottom left</source>
        <translation>أسفل اليسار</translation>
    </message>
    <message>
        <source>Bottom right</source>
        <translation>أسفل اليمين</translation>
    </message>
</context>
<context>
    <name>Kovrel::CropBar</name>
    <message>
        <source>Free</source>
        <translation>حر</translation>
    </message>
    <message>
        <source>Original</source>
        <translation>الأصل</translation>
    </message>
    <message>
        <source>Shape of the Crop</source>
        <translation>نسبة أبعاد الاقتصاص</translation>
    </message>
    <message>
        <source>Keep This Shape</source>
        <translation>الحفاظ على هذه النسبة</translation>
    </message>
    <message>
        <source>Crop</source>
        <translation>اقتصاص</translation>
    </message>
    <message>
        <source>Output Size</source>
        <translation>حجم الإخراج</translation>
    </message>
    <message>
        <source>Reset</source>
        <translation>إعادة تعيين</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>إلغاء</translation>
    </message>
    <message>
        <source>Apply the Crop</source>
        <translation>تطبيق الاقتصاص</translation>
    </message>
    <message>
        <source>Output Size: %1</source>
        <translation>حجم الإخراج: %1</translation>
    </message>
</context>
<context>
    <name>Kovrel::CropSizeMenu</name>
    <message>
        <source>Output Size</source>
        <translation>حجم الإخراج</translation>
    </message>
    <message>
        <source>Width in pixels</source>
        <translation>العرض بالبكسل</translation>
    </message>
    <message>
        <source>Height in pixels</source>
        <translation>الارتفاع بالبكسل</translation>
    </message>
    <message>
        <source>Keep the shape</source>
        <translation>الحفاظ على النسبة</translation>
    </message>
</context>
<context>
    <name>Kovrel::DefaultEditorOffer</name>
    <message>
        <source>Open pictures with Kovrel from now on?</source>
        <translation>هل تريد فتح الصور باستخدام Kovrel من الآن فصاعدًا؟</translation>
    </message>
    <message>
        <source>Not Now</source>
        <translation>ليس الآن</translation>
    </message>
    <message>
        <source>Open with Kovrel</source>
        <translation>الفتح باستخدام Kovrel</translation>
    </message>
</context>
<context>
    <name>Kovrel::DisclosureButton</name>
    <message>
        <source>unfolded</source>
        <translation>موسَّع</translation>
    </message>
    <message>
        <source>folded</source>
        <translation>مطوي</translation>
    </message>
</context>
<context>
    <name>Kovrel::DonePage</name>
    <message>
        <source>You are all set</source>
        <translation>كل شيء جاهز</translation>
    </message>
    <message>
        <source>Kovrel waits in the tray: everything it can do is in its menu there.</source>
        <translation>ينتظر Kovrel في علبة النظام: كل ما يستطيعه تجده في قائمته هناك.</translation>
    </message>
    <message>
        <source>This desktop has no tray. Start Kovrel again whenever you want its window; its keys work all the time.</source>
        <translation>لا علبة نظام في سطح المكتب هذا. شغّل Kovrel من جديد متى أردت نافذته؛ أما مفاتيحه فتعمل دائمًا.</translation>
    </message>
    <message>
        <source>Start Kovrel at login</source>
        <translation>تشغيل Kovrel عند تسجيل الدخول</translation>
    </message>
</context>
<context>
    <name>Kovrel::EditorHandout</name>
    <message>
        <source>The picture can&apos;t be handed out</source>
        <translation>تعذّر إخراج الصورة</translation>
    </message>
    <message>
        <source>Its file can&apos;t be written.</source>
        <translation>تتعذّر كتابة ملفها.</translation>
    </message>
    <message>
        <source>Copied as a file</source>
        <translation>تم النسخ كملف</translation>
    </message>
    <message>
        <source>The picture can&apos;t be made.</source>
        <translation>يتعذّر إنشاء الصورة.</translation>
    </message>
    <message>
        <source>Not printed</source>
        <translation>تعذّرت الطباعة</translation>
    </message>
</context>
<context>
    <name>Kovrel::EditorIntake</name>
    <message>
        <source>Nothing was pasted</source>
        <translation>لم يُلصق شيء</translation>
    </message>
    <message>
        <source>There is no picture on the clipboard.</source>
        <translation>لا توجد صورة في الحافظة.</translation>
    </message>
    <message>
        <source>The picture can&apos;t be read.</source>
        <translation>تتعذّر قراءة الصورة.</translation>
    </message>
    <message>
        <source>Not all was taken</source>
        <translation>لم تُضَف كل الصور</translation>
    </message>
</context>
<context>
    <name>Kovrel::EditorKeeping</name>
    <message>
        <source>There is no history.</source>
        <translation>لا يوجد سجل.</translation>
    </message>
    <message>
        <source>The picture can&apos;t be made.</source>
        <translation>يتعذّر إنشاء الصورة.</translation>
    </message>
</context>
<context>
    <name>Kovrel::EditorLiveText</name>
    <message>
        <source>No text found in the capture</source>
        <translation>لم يُعثر على نص في اللقطة</translation>
    </message>
    <message>
        <source>Text copied</source>
        <translation>تم نسخ النص</translation>
    </message>
</context>
<context>
    <name>Kovrel::EditorPage</name>
    <message>
        <source>Window</source>
        <translation>النافذة</translation>
    </message>
    <message>
        <source>Escape copies the result and closes</source>
        <translation>نسخ النتيجة والإغلاق بمفتاح Esc</translation>
    </message>
    <message>
        <source>Otherwise Escape only closes the window. Your marks are kept either way.</source>
        <translation>وإلا فإن Esc يغلق النافذة فقط. وتُحفظ علاماتك في الحالتين.</translation>
    </message>
    <message>
        <source>esc copy close clipboard</source>
        <translation>esc نسخ إغلاق حافظة</translation>
    </message>
    <message>
        <source>Measure in</source>
        <translation>وحدة القياس</translation>
    </message>
    <message>
        <source>Pixels</source>
        <translation>البكسل</translation>
    </message>
    <message>
        <source>Points</source>
        <translation>النقطة</translation>
    </message>
    <message>
        <source>Points are pixels divided by the scale of the screen.</source>
        <translation>النقاط هي البكسلات مقسومةً على مقياس الشاشة.</translation>
    </message>
    <message>
        <source>unit ruler length px pt</source>
        <translation>وحدة مسطرة طول بكسل نقطة px pt</translation>
    </message>
    <message>
        <source>New Marks</source>
        <translation>العلامات الجديدة</translation>
    </message>
    <message>
        <source>Colour</source>
        <translation>اللون</translation>
    </message>
    <message>
        <source>color annotation arrow</source>
        <translation>لون تعليق توضيحي علامة سهم</translation>
    </message>
    <message>
        <source>Line width</source>
        <translation>سُمك الخط</translation>
    </message>
    <message>
        <source>%1 pt</source>
        <translation>%1 نقطة</translation>
    </message>
    <message>
        <source>stroke thickness annotation arrow</source>
        <translation>حد خط سمك ثخانة علامة سهم</translation>
    </message>
    <message>
        <source>Shapes are</source>
        <translation>الأشكال</translation>
    </message>
    <message>
        <source>Outlined</source>
        <translation>بحدود فقط</translation>
    </message>
    <message>
        <source>Translucent</source>
        <translation>شبه شفافة</translation>
    </message>
    <message>
        <source>Hatched</source>
        <translation>مهشّرة</translation>
    </message>
    <message>
        <source>Filled</source>
        <translation>ممتلئة</translation>
    </message>
    <message>
        <source>fill rectangle ellipse annotation</source>
        <translation>تعبئة ملء مستطيل بيضوي علامة</translation>
    </message>
    <message>
        <source>Rounded corners</source>
        <translation>زوايا مستديرة</translation>
    </message>
    <message>
        <source>rectangle annotation</source>
        <translation>مستطيل علامة</translation>
    </message>
    <message>
        <source>A tool for which you have chosen something else in the editor keeps that.</source>
        <translation>الأداة التي اخترت لها شيئًا آخر في المحرر تحتفظ به.</translation>
    </message>
    <message>
        <source>Text, Highlighter and Spotlight</source>
        <translation>النص وقلم التمييز وبقعة الضوء</translation>
    </message>
    <message>
        <source>Text stands</source>
        <translation>نمط النص</translation>
    </message>
    <message>
        <source>By itself</source>
        <translation>بمفرده</translation>
    </message>
    <message>
        <source>With an outline</source>
        <translation>بحدود خارجية</translation>
    </message>
    <message>
        <source>On a plate</source>
        <translation>على لوحة</translation>
    </message>
    <message>
        <source>In a speech bubble</source>
        <translation>في فقاعة حوار</translation>
    </message>
    <message>
        <source>label style annotation</source>
        <translation>تسمية نص نمط علامة</translation>
    </message>
    <message>
        <source>Fit the highlighter to lines of text</source>
        <translation>ملاءمة قلم التمييز لأسطر النص</translation>
    </message>
    <message>
        <source>marker size automatic</source>
        <translation>قلم تمييز حجم تلقائي</translation>
    </message>
    <message>
        <source>Darkness around spotlights</source>
        <translation>التعتيم حول بقع الضوء</translation>
    </message>
    <message>
        <source>dim shade focus</source>
        <translation>تعتيم ظلمة ظل تركيز</translation>
    </message>
</context>
<context>
    <name>Kovrel::EditorTopBar</name>
    <message>
        <source>Undo (Ctrl+Z)</source>
        <translation>تراجع (Ctrl+Z)</translation>
    </message>
    <message>
        <source>Redo (Ctrl+Shift+Z)</source>
        <translation>إعادة (Ctrl+Shift+Z)</translation>
    </message>
    <message>
        <source>Zoom</source>
        <translation>التكبير والتصغير</translation>
    </message>
    <message>
        <source>Find Text (Ctrl+F)</source>
        <translation>بحث عن نص (Ctrl+F)</translation>
    </message>
    <message>
        <source>Select Text (Ctrl+T)</source>
        <translation>تحديد النص (Ctrl+T)</translation>
    </message>
    <message>
        <source>Backdrop (Ctrl+B)</source>
        <translation>الخلفية (Ctrl+B)</translation>
    </message>
    <message>
        <source>Copy (Ctrl+C)</source>
        <translation>نسخ (Ctrl+C)</translation>
    </message>
    <message>
        <source>Save (Ctrl+S)</source>
        <translation>حفظ (Ctrl+S)</translation>
    </message>
    <message>
        <source>Done</source>
        <translation>تم</translation>
    </message>
    <message>
        <source>Drag the Picture Out</source>
        <translation>سحب الصورة إلى الخارج</translation>
    </message>
</context>
<context>
    <name>Kovrel::EditorWindow</name>
    <message>
        <source>Copied</source>
        <translation>تم النسخ</translation>
    </message>
    <message>
        <source>Not saved</source>
        <translation>لم يتم الحفظ</translation>
    </message>
    <message>
        <source>Copy</source>
        <translation>نسخ</translation>
    </message>
    <message>
        <source>Copy as File</source>
        <translation>نسخ كملف</translation>
    </message>
    <message>
        <source>Paste</source>
        <translation>لصق</translation>
    </message>
    <message>
        <source>Duplicate</source>
        <translation>تكرار</translation>
    </message>
    <message>
        <source>Delete</source>
        <translation>حذف</translation>
    </message>
    <message>
        <source>Bring to Front</source>
        <translation>إحضار إلى المقدمة</translation>
    </message>
    <message>
        <source>Bring Forward</source>
        <translation>إحضار إلى الأمام</translation>
    </message>
    <message>
        <source>Send Backward</source>
        <translation>إرسال إلى الخلف</translation>
    </message>
    <message>
        <source>Send to Back</source>
        <translation>إرسال إلى المؤخرة</translation>
    </message>
    <message>
        <source>Find…</source>
        <translation>بحث…</translation>
    </message>
    <message>
        <source>Select Text</source>
        <translation>تحديد النص</translation>
    </message>
    <message>
        <source>Output Size…</source>
        <translation>حجم الإخراج…</translation>
    </message>
    <message>
        <source>Print…</source>
        <translation>طباعة…</translation>
    </message>
    <message>
        <source>Save the changes?</source>
        <translation>هل تريد حفظ التغييرات؟</translation>
    </message>
    <message>
        <source>The file is written with its marks in the picture; they can&apos;t be changed later.</source>
        <translation>يُكتب الملف وعلاماته مدمجة في الصورة، فلا يمكن تغييرها لاحقًا.</translation>
    </message>
    <message>
        <source>The file is written with its marks in the picture; here they can still be changed later.</source>
        <translation>يُكتب الملف وعلاماته في الصورة، ويمكن تغييرها هنا لاحقًا.</translation>
    </message>
    <message>
        <source>Saved</source>
        <translation>تم الحفظ</translation>
    </message>
</context>
<context>
    <name>Kovrel::EditorWindows</name>
    <message>
        <source>This capture is not there any more</source>
        <translation>لم تعد هذه اللقطة موجودة</translation>
    </message>
    <message>
        <source>Edit Capture</source>
        <translation>تحرير اللقطة</translation>
    </message>
    <message>
        <source>Not opened</source>
        <translation>تعذّر الفتح</translation>
    </message>
    <message>
        <source>%1 is no picture that can be read.</source>
        <translation>الملف ⁨%1⁩ ليس صورة يمكن قراءتها.</translation>
    </message>
    <message>
        <source>The edit was saved as a file of its own</source>
        <translation>حُفظ التحرير في ملف مستقل</translation>
    </message>
</context>
<context>
    <name>Kovrel::FeedbackFeature</name>
    <message>
        <source>Saved as %1.</source>
        <translation>حُفظ باسم %1.</translation>
    </message>
    <message>
        <source>It could not be saved: %1</source>
        <translation>تعذّر الحفظ: %1</translation>
    </message>
    <message>
        <source>Kovrel feedback</source>
        <translation>ملاحظات على Kovrel</translation>
    </message>
    <message>
        <source>It could not be handed to the mail program: %1</source>
        <translation>تعذّر تسليمها إلى برنامج البريد: %1</translation>
    </message>
</context>
<context>
    <name>Kovrel::FeedbackWindow</name>
    <message>
        <source>Your words</source>
        <translation>كلماتك</translation>
    </message>
    <message>
        <source>What goes with them</source>
        <translation>ما يُرفق بها</translation>
    </message>
    <message>
        <source>Kovrel Feedback</source>
        <translation>ملاحظات على Kovrel</translation>
    </message>
    <message>
        <source>Feedback</source>
        <translation>ملاحظات</translation>
    </message>
    <message>
        <source>Kovrel sends nothing by itself. What stands here is all there is: read it, change it or take out what you like, and hand it on yourself.</source>
        <translation>لا يرسل Kovrel شيئًا من تلقاء نفسه. ما تراه هنا هو كل شيء: اقرأه، وغيّره أو احذف منه ما تشاء، ثم سلّمه بنفسك.</translation>
    </message>
    <message>
        <source>What happened, and what did you expect?</source>
        <translation>ماذا حدث، وماذا كنت تتوقع؟</translation>
    </message>
    <message>
        <source>Open in Mail…</source>
        <translation>فتح في البريد…</translation>
    </message>
    <message>
        <source>Copy</source>
        <translation>نسخ</translation>
    </message>
    <message>
        <source>Copied.</source>
        <translation>نُسخ.</translation>
    </message>
    <message>
        <source>Save As…</source>
        <translation>حفظ باسم…</translation>
    </message>
</context>
<context>
    <name>Kovrel::FilterChip</name>
    <message>
        <source>Remove this filter</source>
        <translation>إزالة هذا المرشّح</translation>
    </message>
</context>
<context>
    <name>Kovrel::FindBar</name>
    <message>
        <source>How It Is Redacted</source>
        <translation>طريقة الحجب</translation>
    </message>
    <message>
        <source>Blur</source>
        <translation>تمويه</translation>
    </message>
    <message>
        <source>Pixelate</source>
        <translation>بكسلة</translation>
    </message>
    <message>
        <source>Black Out</source>
        <translation>تسويد</translation>
    </message>
    <message>
        <source>Redact All</source>
        <translation>حجب الكل</translation>
    </message>
    <message>
        <source>Find</source>
        <translation>بحث</translation>
    </message>
    <message>
        <source>Close (Escape)</source>
        <translation>إغلاق (Esc)</translation>
    </message>
    <message>
        <source>Find text in this capture</source>
        <translation>البحث عن نص في هذه اللقطة</translation>
    </message>
    <message>
        <source>Previous (Shift+Return)</source>
        <translation>السابق (Shift+Enter)</translation>
    </message>
    <message>
        <source>Next (Return)</source>
        <translation>التالي (Enter)</translation>
    </message>
    <message>
        <source>Reading text…</source>
        <translation>جارٍ قراءة النص…</translation>
    </message>
    <message>
        <source>The text can&apos;t be read</source>
        <translation>تتعذّر قراءة النص</translation>
    </message>
    <message>
        <source>There is no text in this capture</source>
        <translation>لا يوجد نص في هذه اللقطة</translation>
    </message>
    <message>
        <source>%1 of %2</source>
        <translation>%1 من %2</translation>
    </message>
    <message>
        <source>Not found</source>
        <translation>لم يُعثر على شيء</translation>
    </message>
</context>
<context>
    <name>Kovrel::FirstRunWindow</name>
    <message>
        <source>Welcome to Kovrel</source>
        <translation>مرحبًا بك في Kovrel</translation>
    </message>
    <message>
        <source>Your account stays here</source>
        <translation>حسابك يبقى هنا</translation>
    </message>
    <message>
        <source>Kovrel works with an account that is kept on this computer. There is nothing to fill in, and nothing is sent anywhere.</source>
        <translation>يعمل Kovrel بحساب محفوظ على هذا الحاسوب. لا شيء تملؤه، ولا شيء يُرسل إلى أي مكان.</translation>
    </message>
    <message>
        <source>Skip</source>
        <translation>تخطٍّ</translation>
    </message>
    <message>
        <source>Back</source>
        <translation>رجوع</translation>
    </message>
    <message>
        <source>Continue</source>
        <translation>متابعة</translation>
    </message>
    <message>
        <source>Use Kovrel on This Computer</source>
        <translation>استخدام Kovrel على هذا الحاسوب</translation>
    </message>
    <message>
        <source>Try It Now</source>
        <translation>جرّب الآن</translation>
    </message>
    <message>
        <source>Start Using Kovrel</source>
        <translation>البدء باستخدام Kovrel</translation>
    </message>
</context>
<context>
    <name>Kovrel::FolderField</name>
    <message>
        <source>Choose…</source>
        <translation>اختيار…</translation>
    </message>
    <message>
        <source>Choose: %1</source>
        <translation>اختيار: %1</translation>
    </message>
</context>
<context>
    <name>Kovrel::GeneralPage</name>
    <message>
        <source>Start</source>
        <translation>بدء التشغيل</translation>
    </message>
    <message>
        <source>Start Kovrel at login</source>
        <translation>تشغيل Kovrel عند تسجيل الدخول</translation>
    </message>
    <message>
        <source>It waits in the tray, so that its shortcuts work at once.</source>
        <translation>ينتظر في علبة النظام لتعمل اختصاراته فورًا.</translation>
    </message>
    <message>
        <source>autostart boot launch session</source>
        <translation>تشغيل تلقائي إقلاع بدء جلسة</translation>
    </message>
    <message>
        <source>Settings File</source>
        <translation>ملف الإعدادات</translation>
    </message>
    <message>
        <source>Export all settings</source>
        <translation>تصدير كل الإعدادات</translation>
    </message>
    <message>
        <source>Export…</source>
        <translation>تصدير…</translation>
    </message>
    <message>
        <source>As one file, for another computer or to be kept.</source>
        <translation>في ملف واحد، لحاسوب آخر أو للاحتفاظ به.</translation>
    </message>
    <message>
        <source>backup save move transfer</source>
        <translation>نسخ احتياطي حفظ نقل</translation>
    </message>
    <message>
        <source>Import settings</source>
        <translation>استيراد الإعدادات</translation>
    </message>
    <message>
        <source>Import…</source>
        <translation>استيراد…</translation>
    </message>
    <message>
        <source>Everything is then as it was when the file was exported.</source>
        <translation>يعود كل شيء كما كان عند تصدير الملف.</translation>
    </message>
    <message>
        <source>restore load move transfer</source>
        <translation>استعادة تحميل نقل</translation>
    </message>
    <message>
        <source>Troubleshooting</source>
        <translation>استكشاف الأخطاء</translation>
    </message>
    <message>
        <source>Write the timing of captures to the log</source>
        <translation>كتابة توقيتات الالتقاط في سجل النظام</translation>
    </message>
    <message>
        <source>Read it with: journalctl --user -t kovrel</source>
        <translation>اقرأها بالأمر: journalctl --user -t kovrel</translation>
    </message>
    <message>
        <source>debug trace slow problem journal</source>
        <translation>تنقيح تتبع بطء مشكلة سجل</translation>
    </message>
</context>
<context>
    <name>Kovrel::GreetingPage</name>
    <message>
        <source>Welcome to Kovrel</source>
        <translation>مرحبًا بك في Kovrel</translation>
    </message>
    <message>
        <source>Captures, kept and found again. Everything stays on this computer.</source>
        <translation>لقطات تُحفظ ويُعثر عليها من جديد. كل شيء يبقى على هذا الحاسوب.</translation>
    </message>
    <message>
        <source>Capture</source>
        <translation>الالتقاط</translation>
    </message>
    <message>
        <source>An area, a window or the whole screen</source>
        <translation>منطقة أو نافذة أو الشاشة كاملة</translation>
    </message>
    <message>
        <source>Mark up</source>
        <translation>التعليق</translation>
    </message>
    <message>
        <source>Arrows, labels, redactions, backdrops</source>
        <translation>أسهم ونصوص وطمس وخلفيات</translation>
    </message>
    <message>
        <source>Find again</source>
        <translation>العثور من جديد</translation>
    </message>
    <message>
        <source>By any word that was on the screen</source>
        <translation>بأي كلمة كانت على الشاشة</translation>
    </message>
</context>
<context>
    <name>Kovrel::HistoryActions</name>
    <message>
        <source>The picture of this capture can&apos;t be read</source>
        <translation>تتعذّر قراءة صورة هذه اللقطة</translation>
    </message>
    <message>
        <source>Copied</source>
        <translation>تم النسخ</translation>
    </message>
    <message>
        <source>No text found</source>
        <translation>لم يُعثر على نص</translation>
    </message>
    <message>
        <source>Text copied</source>
        <translation>تم نسخ النص</translation>
    </message>
</context>
<context>
    <name>Kovrel::HistoryFacetOptions</name>
    <message>
        <source>Today</source>
        <translation>اليوم</translation>
    </message>
    <message>
        <source>Yesterday</source>
        <translation>أمس</translation>
    </message>
    <message>
        <source>Last 7 Days</source>
        <translation>آخر 7 أيام</translation>
    </message>
    <message>
        <source>Last 30 Days</source>
        <translation>آخر 30 يومًا</translation>
    </message>
</context>
<context>
    <name>Kovrel::HistoryGrid</name>
    <message>
        <source>Captures</source>
        <translation>اللقطات</translation>
    </message>
</context>
<context>
    <name>Kovrel::HistoryMenu</name>
    <message>
        <source>Edit</source>
        <translation>تحرير</translation>
    </message>
    <message>
        <source>Show as Card</source>
        <translation>إظهار كبطاقة</translation>
    </message>
    <message>
        <source>Pin to Screen</source>
        <translation>تثبيت على الشاشة</translation>
    </message>
    <message>
        <source>Copy</source>
        <translation>نسخ</translation>
    </message>
    <message>
        <source>Copy Text</source>
        <translation>نسخ النص</translation>
    </message>
    <message>
        <source>Save</source>
        <translation>حفظ</translation>
    </message>
    <message>
        <source>Save As…</source>
        <translation>حفظ باسم…</translation>
    </message>
    <message>
        <source>Show in Files</source>
        <translation>إظهار في مدير الملفات</translation>
    </message>
    <message>
        <source>Rename</source>
        <translation>إعادة التسمية</translation>
    </message>
    <message>
        <source>Delete</source>
        <translation>حذف</translation>
    </message>
    <message>
        <source>Undo</source>
        <translation>تراجع</translation>
    </message>
    <message>
        <source>Move to List</source>
        <translation>نقل إلى قائمة</translation>
    </message>
    <message>
        <source>New List</source>
        <translation>قائمة جديدة</translation>
    </message>
    <message>
        <source>Remove from List</source>
        <translation>إزالة من القائمة</translation>
    </message>
    <message>
        <source>Restore to the Timeline</source>
        <translation>استعادة إلى الخط الزمني</translation>
    </message>
</context>
<context>
    <name>Kovrel::HistoryPage</name>
    <message>
        <source>Name of the list of all captures</source>
        <translation>اسم قائمة كل اللقطات</translation>
    </message>
    <message>
        <source>timeline title all</source>
        <translation>خط زمني عنوان كل</translation>
    </message>
    <message>
        <source>Recent Captures</source>
        <translation>اللقطات الأخيرة</translation>
    </message>
    <message>
        <source>Captures in lists are kept until you delete them, and don&apos;t count.</source>
        <translation>تبقى اللقطات التي في القوائم حتى تحذفها، ولا تدخل في العدد.</translation>
    </message>
    <message>
        <source>Keep captures in the history</source>
        <translation>الاحتفاظ باللقطات في السجل</translation>
    </message>
    <message>
        <source>Everything stays on this computer.</source>
        <translation>يبقى كل شيء على هذا الحاسوب.</translation>
    </message>
    <message>
        <source>record turn off privacy recent</source>
        <translation>تسجيل إيقاف خصوصية أخيرة</translation>
    </message>
    <message>
        <source>Turn Off</source>
        <translation>إيقاف</translation>
    </message>
    <message>
        <source>1 capture</source>
        <translation>لقطة واحدة</translation>
    </message>
    <message>
        <source>%1 captures</source>
        <translation>%1 لقطة</translation>
    </message>
    <message>
        <source>Keep the newest</source>
        <translation>الاحتفاظ بالأحدث</translation>
    </message>
    <message>
        <source>retention number limit how many delete old</source>
        <translation>احتفاظ عدد حد كم حذف قديم</translation>
    </message>
    <message>
        <source>Delete</source>
        <translation>حذف</translation>
    </message>
</context>
<context>
    <name>Kovrel::HistoryQuestions</name>
    <message>
        <source>Turn off history and delete 1 unsaved capture?</source>
        <translation>هل تريد إيقاف السجل وحذف لقطة واحدة غير محفوظة؟</translation>
    </message>
    <message>
        <source>Turn off history and delete %1 unsaved captures?</source>
        <translation>هل تريد إيقاف السجل وحذف اللقطات غير المحفوظة (%1)؟</translation>
    </message>
    <message>
        <source>Kovrel stops recording new captures, and recent captures you haven&apos;t saved are deleted. Saved captures stay in the list, and files on disk are not affected.</source>
        <translation>يتوقف Kovrel عن تسجيل اللقطات الجديدة، وتُحذف اللقطات الأخيرة التي لم تحفظها. تبقى اللقطات المحفوظة في القائمة، ولا تتأثر الملفات على القرص.</translation>
    </message>
    <message>
        <source>Everything else is permanently deleted from Kovrel&apos;s history; files you saved elsewhere are not affected.</source>
        <translation>يُحذف كل ما عدا ذلك نهائيًا من سجل Kovrel، ولا تتأثر الملفات التي حفظتها في أماكن أخرى.</translation>
    </message>
    <message>
        <source>Delete the oldest capture?</source>
        <translation>هل تريد حذف أقدم لقطة؟</translation>
    </message>
    <message>
        <source>Delete the %1 oldest captures?</source>
        <translation>هل تريد حذف أقدم اللقطات (%1)؟</translation>
    </message>
    <message>
        <source>They are permanently deleted from Kovrel&apos;s history, because it is to keep fewer. Captures in lists stay, and files you saved elsewhere are not affected.</source>
        <translation>تُحذف نهائيًا من سجل Kovrel لأنه سيحتفظ بعدد أقل. تبقى اللقطات التي في القوائم، ولا تتأثر الملفات التي حفظتها في أماكن أخرى.</translation>
    </message>
</context>
<context>
    <name>Kovrel::HistorySearchField</name>
    <message>
        <source>Search applications, files, kinds and text</source>
        <translation>بحث في التطبيقات والملفات والأنواع والنصوص</translation>
    </message>
    <message>
        <source>Search</source>
        <translation>بحث</translation>
    </message>
</context>
<context>
    <name>Kovrel::HistorySidebar</name>
    <message>
        <source>Lists</source>
        <translation>القوائم</translation>
    </message>
    <message>
        <source>New List</source>
        <translation>قائمة جديدة</translation>
    </message>
    <message>
        <source>Delete All That Is in No List…</source>
        <translation>حذف كل ما ليس في قائمة…</translation>
    </message>
    <message>
        <source>Turn Off History…</source>
        <translation>إيقاف السجل…</translation>
    </message>
    <message>
        <source>History Settings…</source>
        <translation>إعدادات السجل…</translation>
    </message>
    <message>
        <source>Rename</source>
        <translation>إعادة التسمية</translation>
    </message>
    <message>
        <source>Color</source>
        <translation>اللون</translation>
    </message>
    <message>
        <source>Delete List</source>
        <translation>حذف القائمة</translation>
    </message>
</context>
<context>
    <name>Kovrel::HistoryStrip</name>
    <message>
        <source>Recent Captures</source>
        <translation>اللقطات الأخيرة</translation>
    </message>
    <message>
        <source>Nothing found</source>
        <translation>لم يُعثر على شيء</translation>
    </message>
    <message>
        <source>Whatever you capture is kept here.</source>
        <translation>كل ما تلتقطه يُحفظ هنا.</translation>
    </message>
</context>
<context>
    <name>Kovrel::HistoryWindow</name>
    <message>
        <source>Kind</source>
        <translation>النوع</translation>
    </message>
    <message>
        <source>Application</source>
        <translation>التطبيق</translation>
    </message>
    <message>
        <source>List</source>
        <translation>القائمة</translation>
    </message>
    <message>
        <source>Date</source>
        <translation>التاريخ</translation>
    </message>
    <message>
        <source>All</source>
        <translation>الكل</translation>
    </message>
    <message>
        <source>Recent Captures</source>
        <translation>اللقطات الأخيرة</translation>
    </message>
    <message>
        <source>Nothing Found</source>
        <translation>لم يُعثر على شيء</translation>
    </message>
    <message>
        <source>Applications, file names, kinds and the words in captures are searched. Try fewer or shorter words.</source>
        <translation>يشمل البحث التطبيقات وأسماء الملفات والأنواع والكلمات الواردة في اللقطات. جرّب كلمات أقل أو أقصر.</translation>
    </message>
    <message>
        <source>Clear Search</source>
        <translation>مسح البحث</translation>
    </message>
    <message>
        <source>An Empty List</source>
        <translation>قائمة فارغة</translation>
    </message>
    <message>
        <source>Drag captures here to keep them, whatever else is deleted.</source>
        <translation>اسحب اللقطات إلى هنا للاحتفاظ بها، مهما حُذف غيرها.</translation>
    </message>
    <message>
        <source>History Is Off</source>
        <translation>السجل متوقف</translation>
    </message>
    <message>
        <source>New captures are not kept here.</source>
        <translation>لا تُحفظ اللقطات الجديدة هنا.</translation>
    </message>
    <message>
        <source>Turn On History</source>
        <translation>تشغيل السجل</translation>
    </message>
    <message>
        <source>No Captures Yet</source>
        <translation>لا لقطات بعد</translation>
    </message>
    <message>
        <source>Whatever you capture is kept here, to be found again.</source>
        <translation>كل ما تلتقطه يُحفظ هنا لتجده لاحقًا.</translation>
    </message>
    <message>
        <source>Press %1 to capture an area. Whatever you capture is kept here, to be found again.</source>
        <translation>اضغط %1 لالتقاط منطقة. كل ما تلتقطه يُحفظ هنا لتجده لاحقًا.</translation>
    </message>
    <message numerus="yes">
        <source>%n captures selected</source>
        <translation>
            <numerusform>لم تُحدَّد أي لقطة</numerusform>
            <numerusform>حُدِّدت لقطة واحدة</numerusform>
            <numerusform>حُدِّدت لقطتان</numerusform>
            <numerusform>حُدِّدت %n لقطات</numerusform>
            <numerusform>حُدِّدت %n لقطة</numerusform>
            <numerusform>حُدِّدت %n لقطة</numerusform>
        </translation>
    </message>
    <message>
        <source>Size</source>
        <translation>الحجم</translation>
    </message>
    <message>
        <source>File</source>
        <translation>الملف</translation>
    </message>
    <message>
        <source>Delete the list “%1”?</source>
        <translation>هل تريد حذف القائمة «%1»؟</translation>
    </message>
    <message>
        <source>Its captures are in the timeline again, which keeps the newest only.</source>
        <translation>تعود لقطاتها إلى المخطط الزمني الذي لا يحتفظ إلا بالأحدث.</translation>
    </message>
    <message>
        <source>Delete all captures that are in no list?</source>
        <translation>هل تريد حذف كل اللقطات التي ليست في قائمة؟</translation>
    </message>
    <message>
        <source>Delete</source>
        <translation>حذف</translation>
    </message>
    <message>
        <source>Turn Off</source>
        <translation>إيقاف</translation>
    </message>
    <message numerus="yes">
        <source>%n captures deleted</source>
        <translation>
            <numerusform>لم تُحذف أي لقطة</numerusform>
            <numerusform>حُذفت لقطة واحدة</numerusform>
            <numerusform>حُذفت لقطتان</numerusform>
            <numerusform>حُذفت %n لقطات</numerusform>
            <numerusform>حُذفت %n لقطة</numerusform>
            <numerusform>حُذفت %n لقطة</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>Kovrel::HomeWindow</name>
    <message>
        <source>Kovrel was updated to version %1.</source>
        <translation>تم تحديث Kovrel إلى الإصدار %1.</translation>
    </message>
    <message>
        <source>Welcome to Kovrel</source>
        <translation>مرحبًا بك في Kovrel</translation>
    </message>
    <message>
        <source>Capture from here, from the tray or from the command line.</source>
        <translation>التقط من هنا أو من علبة النظام أو من سطر الأوامر.</translation>
    </message>
    <message>
        <source>Captures, kept and found again. Everything stays on this computer.</source>
        <translation>لقطات محفوظة تجدها متى شئت. ويبقى كل شيء على هذا الحاسوب.</translation>
    </message>
    <message>
        <source>Use Kovrel on This Computer</source>
        <translation>استخدام Kovrel على هذا الحاسوب</translation>
    </message>
    <message>
        <source>Sign Out…</source>
        <translation>تسجيل الخروج…</translation>
    </message>
    <message>
        <source>Kovrel %1 is available from your package manager.</source>
        <translation>يتوفر Kovrel %1 في مدير الحزم.</translation>
    </message>
    <message>
        <source>Version %1</source>
        <translation>الإصدار %1</translation>
    </message>
    <message>
        <source>Signed in with the account on this computer</source>
        <translation>مسجّل الدخول بالحساب المحفوظ على هذا الحاسوب</translation>
    </message>
    <message>
        <source>Signed in with your account on the web</source>
        <translation>مسجّل الدخول بحسابك على الويب</translation>
    </message>
    <message>
        <source>Sign out of Kovrel?</source>
        <translation>أتريد تسجيل الخروج من Kovrel؟</translation>
    </message>
    <message>
        <source>Nothing can be captured until somebody signs in again. Captures and settings stay where they are.</source>
        <translation>لا يمكن التقاط شيء حتى يُسجَّل الدخول من جديد. تبقى اللقطات والإعدادات في مكانها.</translation>
    </message>
    <message>
        <source>Sign Out</source>
        <translation>تسجيل الخروج</translation>
    </message>
</context>
<context>
    <name>Kovrel::HotkeyButton</name>
    <message>
        <source>None</source>
        <translation>بلا</translation>
    </message>
    <message>
        <source>The keyboard is in use</source>
        <translation>لوحة المفاتيح قيد الاستخدام</translation>
    </message>
    <message>
        <source>Add Ctrl, Alt or Super</source>
        <translation>أضف Ctrl أو Alt أو Super</translation>
    </message>
    <message>
        <source>Type a shortcut…</source>
        <translation>اكتب اختصارًا…</translation>
    </message>
    <message>
        <source>Type a shortcut. Backspace clears it, Escape leaves it.</source>
        <translation>اكتب اختصارًا. يمسحه Backspace، ويُبقيه Esc كما هو.</translation>
    </message>
</context>
<context>
    <name>Kovrel::HotkeysFeature</name>
    <message>
        <source>%1 belongs to “%2” already</source>
        <translation>الاختصار %1 مخصص مسبقًا لـ «%2»</translation>
    </message>
    <message>
        <source>%1 belongs to another program; it is tried again when that lets it go</source>
        <translation>الاختصار %1 يخص برنامجًا آخر، وستُعاد المحاولة عندما يتخلى عنه</translation>
    </message>
    <message>
        <source>Another program has %1</source>
        <translation>برنامج آخر يستخدم %1</translation>
    </message>
    <message>
        <source>It is tried again when that lets it go.</source>
        <translation>ستُعاد المحاولة عندما يتخلى عنه.</translation>
    </message>
</context>
<context>
    <name>Kovrel::HotkeysPage</name>
    <message>
        <source>Capture from anywhere</source>
        <translation>الالتقاط من أي مكان</translation>
    </message>
    <message>
        <source>These keys work in every program, also while a menu is open.</source>
        <translation>تعمل هذه المفاتيح في كل برنامج، حتى وقائمةٌ مفتوحة.</translation>
    </message>
    <message>
        <source>Change Keys…</source>
        <translation>تغيير المفاتيح…</translation>
    </message>
    <message>
        <source>Your desktop takes its own screenshots with %1. Kovrel borrows these keys while it runs, and gives them back when it ends.</source>
        <translation>يلتقط سطح المكتب لقطاته الخاصة بواسطة %1. يستعير Kovrel هذه المفاتيح ما دام يعمل، ويعيدها حين ينتهي.</translation>
    </message>
</context>
<context>
    <name>Kovrel::LanguagesField</name>
    <message>
        <source>No language is installed, so no text can be read.</source>
        <translation>لا توجد أي لغة مثبّتة، لذا لا يمكن قراءة النصوص.</translation>
    </message>
    <message>
        <source>%1 is not installed: Debian&apos;s package %2 brings it.</source>
        <translation>اللغة %1 غير مثبّتة: توفّرها حزمة دبيان %2.</translation>
    </message>
</context>
<context>
    <name>Kovrel::LightPad</name>
    <message>
        <source>Light</source>
        <translation>الضوء</translation>
    </message>
    <message>
        <source>Where the light comes from</source>
        <translation>اتجاه مصدر الضوء</translation>
    </message>
    <message>
        <source>from %1 % right, %2 % above</source>
        <translation>من اليمين %1%، من الأعلى %2%</translation>
    </message>
</context>
<context>
    <name>Kovrel::ListsModel</name>
    <message numerus="yes">
        <source>%n captures</source>
        <translation>
            <numerusform>لا لقطات</numerusform>
            <numerusform>لقطة واحدة</numerusform>
            <numerusform>لقطتان</numerusform>
            <numerusform>%n لقطات</numerusform>
            <numerusform>%n لقطة</numerusform>
            <numerusform>%n لقطة</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>Kovrel::LiveTextLayer</name>
    <message>
        <source>Text in the picture</source>
        <translation>النص في الصورة</translation>
    </message>
    <message>
        <source>Open %1</source>
        <translation>فتح ⁦%1⁩</translation>
    </message>
    <message>
        <source>Copy Text of the Code</source>
        <translation>نسخ نص الرمز</translation>
    </message>
    <message>
        <source>Copy Address</source>
        <translation>نسخ العنوان</translation>
    </message>
    <message>
        <source>Copy</source>
        <translation>نسخ</translation>
    </message>
    <message>
        <source>Select All</source>
        <translation>تحديد الكل</translation>
    </message>
    <message>
        <source>Text in pictures can be selected</source>
        <translation>يمكن تحديد النص في الصور</translation>
    </message>
</context>
<context>
    <name>Kovrel::PermissionWindow</name>
    <message>
        <source>Check Again</source>
        <translation>تحقق من جديد</translation>
    </message>
    <message>
        <source>Kovrel can&apos;t capture here</source>
        <translation>لا يستطيع Kovrel الالتقاط هنا</translation>
    </message>
    <message>
        <source>Capturing is still not possible.</source>
        <translation>ما زال الالتقاط غير ممكن.</translation>
    </message>
</context>
<context>
    <name>Kovrel::PinController</name>
    <message>
        <source>Copied</source>
        <translation>تم النسخ</translation>
    </message>
    <message>
        <source>There is no display to pin to</source>
        <translation>لا توجد شاشة للتثبيت عليها</translation>
    </message>
</context>
<context>
    <name>Kovrel::PinMenu</name>
    <message>
        <source>Saved</source>
        <translation>تم الحفظ</translation>
    </message>
    <message>
        <source>Edit</source>
        <translation>تحرير</translation>
    </message>
    <message>
        <source>Copy Image</source>
        <translation>نسخ الصورة</translation>
    </message>
    <message>
        <source>Save</source>
        <translation>حفظ</translation>
    </message>
    <message>
        <source>Actual Size</source>
        <translation>الحجم الفعلي</translation>
    </message>
    <message>
        <source>Unpin</source>
        <translation>إلغاء التثبيت</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>إغلاق</translation>
    </message>
</context>
<context>
    <name>Kovrel::PinPanel</name>
    <message>
        <source>Pinned capture</source>
        <translation>لقطة مثبّتة</translation>
    </message>
</context>
<context>
    <name>Kovrel::PreviewPicture</name>
    <message>
        <source>Preview</source>
        <translation>معاينة</translation>
    </message>
</context>
<context>
    <name>Kovrel::PreviewWindows</name>
    <message>
        <source>Text copied</source>
        <translation>تم نسخ النص</translation>
    </message>
</context>
<context>
    <name>Kovrel::ProgressDots</name>
    <message>
        <source>Step %1 of %2</source>
        <translation>الخطوة %1 من %2</translation>
    </message>
</context>
<context>
    <name>Kovrel::SavingPage</name>
    <message>
        <source>After Each Capture</source>
        <translation>بعد كل التقاط</translation>
    </message>
    <message>
        <source>Show a card</source>
        <translation>إظهار بطاقة</translation>
    </message>
    <message>
        <source>preview thumbnail</source>
        <translation>معاينة صورة مصغرة</translation>
    </message>
    <message>
        <source>Copy it to the clipboard</source>
        <translation>نسخ اللقطة إلى الحافظة</translation>
    </message>
    <message>
        <source>paste</source>
        <translation>لصق</translation>
    </message>
    <message>
        <source>Save it to the folder of captures</source>
        <translation>حفظ اللقطة في مجلد اللقطات</translation>
    </message>
    <message>
        <source>file disk automatically</source>
        <translation>ملف قرص تلقائيا</translation>
    </message>
    <message>
        <source>Open it in the editor</source>
        <translation>فتح اللقطة في المحرر</translation>
    </message>
    <message>
        <source>annotate mark</source>
        <translation>تعليق توضيحي علامة</translation>
    </message>
    <message>
        <source>Pin it to the screen</source>
        <translation>تثبيت اللقطة على الشاشة</translation>
    </message>
    <message>
        <source>float above</source>
        <translation>طفو عائم فوق</translation>
    </message>
    <message>
        <source>A capture with which nothing of that can be done is saved in any case.</source>
        <translation>إذا تعذّر كل ذلك مع لقطة ما، فإنها تُحفظ على أي حال.</translation>
    </message>
    <message>
        <source>Files</source>
        <translation>الملفات</translation>
    </message>
    <message>
        <source>This folder is not there. Until it is, captures are kept in %1.</source>
        <translation>هذا المجلد غير موجود. وإلى أن يوجد، تُحفظ اللقطات في ⁦%1⁩.</translation>
    </message>
    <message>
        <source>Kovrel can&apos;t write to this folder. Captures are kept in %1 instead.</source>
        <translation>لا يستطيع Kovrel الكتابة في هذا المجلد. تُحفظ اللقطات في ⁦%1⁩ بدلًا منه.</translation>
    </message>
    <message>
        <source>Save captures to</source>
        <translation>حفظ اللقطات في</translation>
    </message>
    <message>
        <source>location directory destination path where</source>
        <translation>موقع دليل مجلد وجهة مسار أين</translation>
    </message>
    <message>
        <source>Filename template</source>
        <translation>قالب اسم الملف</translation>
    </message>
    <message>
        <source>%Y year, %m month, %d day, %H hour, %M minute, %S second</source>
        <translation>⁦%Y⁩ السنة، ⁦%m⁩ الشهر، ⁦%d⁩ اليوم، ⁦%H⁩ الساعة، ⁦%M⁩ الدقيقة، ⁦%S⁩ الثانية</translation>
    </message>
    <message>
        <source>name pattern date time</source>
        <translation>اسم نمط قالب تاريخ وقت</translation>
    </message>
    <message>
        <source>This name is too long for a file and is cut off.</source>
        <translation>هذا الاسم أطول مما يُسمح به للملف، وسيُقتطع.</translation>
    </message>
    <message>
        <source>Example: %1</source>
        <translation>مثال: ⁨%1⁩</translation>
    </message>
    <message>
        <source>“%1” can&apos;t be part of a name and becomes a hyphen. %2</source>
        <translation>لا يمكن أن يكون «%1» جزءًا من الاسم، فيُستبدل بشرطة. %2</translation>
    </message>
    <message>
        <source>Pictures</source>
        <translation>الصور</translation>
    </message>
    <message>
        <source>Choose the format automatically</source>
        <translation>اختيار الصيغة تلقائيًا</translation>
    </message>
    <message>
        <source>Auto saves JPEG for large opaque screenshots and PNG when there&apos;s transparency or fine UI detail.</source>
        <translation>تُحفظ اللقطات الكبيرة غير الشفافة بصيغة JPEG، وتُستخدم PNG عند وجود شفافية أو تفاصيل دقيقة في الواجهة.</translation>
    </message>
    <message>
        <source>auto type file png jpeg</source>
        <translation>تلقائي نوع ملف صيغة png jpeg</translation>
    </message>
    <message>
        <source>Quality of JPEG and HEIC</source>
        <translation>جودة JPEG وHEIC</translation>
    </message>
    <message>
        <source>Less makes smaller files.</source>
        <translation>القيمة الأقل تعطي ملفات أصغر.</translation>
    </message>
    <message>
        <source>compression size lossy</source>
        <translation>ضغط حجم فقدان جودة</translation>
    </message>
    <message>
        <source>Resize high-density screenshots</source>
        <translation>تغيير حجم لقطات الشاشات عالية الكثافة</translation>
    </message>
    <message>
        <source>One pixel of the file for each point of the screen.</source>
        <translation>بكسل واحد في الملف لكل نقطة على الشاشة.</translation>
    </message>
    <message>
        <source>retina hidpi scale downscale smaller 1x</source>
        <translation>ريتينا retina hidpi مقياس تصغير أصغر 1x</translation>
    </message>
    <message>
        <source>Format</source>
        <translation>الصيغة</translation>
    </message>
    <message>
        <source>PNG</source>
        <translation>PNG</translation>
    </message>
    <message>
        <source>JPEG</source>
        <translation>JPEG</translation>
    </message>
    <message>
        <source>HEIC</source>
        <translation>HEIC</translation>
    </message>
    <message>
        <source>TIFF</source>
        <translation>TIFF</translation>
    </message>
    <message>
        <source>type file jpg heif tif picture image</source>
        <translation>نوع ملف صيغة صورة jpg heif tif</translation>
    </message>
</context>
<context>
    <name>Kovrel::SelfTimer</name>
    <message>
        <source>Capturing in %1…</source>
        <translation>الالتقاط بعد %1…</translation>
    </message>
</context>
<context>
    <name>Kovrel::SettingRowView</name>
    <message>
        <source>Reset “%1”</source>
        <translation>إعادة تعيين «%1»</translation>
    </message>
</context>
<context>
    <name>Kovrel::SettingsFeature</name>
    <message>
        <source>Kovrel settings</source>
        <translation>إعدادات Kovrel</translation>
    </message>
    <message>
        <source>The settings were exported to %1.</source>
        <translation>تم تصدير الإعدادات إلى ⁦%1⁩.</translation>
    </message>
    <message>
        <source>The settings could not be exported: %1</source>
        <translation>تعذّر تصدير الإعدادات: %1</translation>
    </message>
    <message>
        <source>Settings (*.json)</source>
        <translation>الإعدادات ‎(*.json)</translation>
    </message>
    <message>
        <source>Nothing was imported: %1</source>
        <translation>لم يُستورد شيء: %1</translation>
    </message>
    <message>
        <source>The settings were imported.</source>
        <translation>تم استيراد الإعدادات.</translation>
    </message>
    <message>
        <source>The settings were imported, but for what this version does not know: %1</source>
        <translation>تم استيراد الإعدادات، عدا ما لا يعرفه هذا الإصدار: %1</translation>
    </message>
</context>
<context>
    <name>Kovrel::SettingsPageView</name>
    <message>
        <source>Reset This Page</source>
        <translation>إعادة تعيين هذه الصفحة</translation>
    </message>
</context>
<context>
    <name>Kovrel::SettingsSidebar</name>
    <message>
        <source>Search settings</source>
        <translation>بحث في الإعدادات</translation>
    </message>
</context>
<context>
    <name>Kovrel::SettingsTabs</name>
    <message>
        <source>General</source>
        <translation>عام</translation>
    </message>
    <message>
        <source>Capture</source>
        <translation>الالتقاط</translation>
    </message>
    <message>
        <source>After Capture</source>
        <translation>بعد الالتقاط</translation>
    </message>
    <message>
        <source>Saving</source>
        <translation>الحفظ</translation>
    </message>
    <message>
        <source>Editor</source>
        <translation>المحرر</translation>
    </message>
    <message>
        <source>Shortcuts</source>
        <translation>الاختصارات</translation>
    </message>
    <message>
        <source>History</source>
        <translation>السجل</translation>
    </message>
    <message>
        <source>Text Recognition</source>
        <translation>التعرف على النص</translation>
    </message>
    <message>
        <source>Sounds</source>
        <translation>الأصوات</translation>
    </message>
</context>
<context>
    <name>Kovrel::SettingsTransfer</name>
    <message>
        <source>This file of settings is damaged or cut off.</source>
        <translation>ملف الإعدادات هذا تالف أو مبتور.</translation>
    </message>
    <message>
        <source>This is no file of Kovrel&apos;s settings.</source>
        <translation>ليس هذا ملف إعدادات لـ Kovrel.</translation>
    </message>
    <message>
        <source>This file of settings is from another version of Kovrel.</source>
        <translation>ملف الإعدادات هذا من إصدار آخر من Kovrel.</translation>
    </message>
    <message>
        <source>The value of “%1” in this file makes no sense.</source>
        <translation>قيمة «%1» في هذا الملف غير معقولة.</translation>
    </message>
    <message>
        <source>%1 can&apos;t be read.</source>
        <translation>تتعذّر قراءة ⁦%1⁩.</translation>
    </message>
</context>
<context>
    <name>Kovrel::SettingsWindow</name>
    <message>
        <source>Kovrel Settings</source>
        <translation>إعدادات Kovrel</translation>
    </message>
    <message>
        <source>No setting is called “%1”.</source>
        <translation>لا يوجد إعداد باسم «%1».</translation>
    </message>
    <message>
        <source>Changes hold only until Kovrel quits: %1</source>
        <translation>تسري التغييرات حتى إنهاء Kovrel فقط: %1</translation>
    </message>
</context>
<context>
    <name>Kovrel::ShortcutsPage</name>
    <message>
        <source>From Anywhere</source>
        <translation>من أي مكان</translation>
    </message>
    <message>
        <source>Click a shortcut and type the new one. Backspace clears it, Escape leaves it.</source>
        <translation>انقر اختصارًا واكتب الجديد. يمسحه Backspace، ويُبقيه Esc كما هو.</translation>
    </message>
    <message>
        <source>The Desktop&apos;s Own</source>
        <translation>اختصارات سطح المكتب</translation>
    </message>
    <message>
        <source>hotkey keyboard keys shortcut combination</source>
        <translation>اختصار لوحة مفاتيح مفتاح تركيبة</translation>
    </message>
    <message>
        <source>Kovrel borrows them while it runs. Giving them back clears Kovrel&apos;s own.</source>
        <translation>يستعيرها Kovrel أثناء عمله. وإعادتها تمسح اختصارات Kovrel نفسه.</translation>
    </message>
    <message>
        <source>This desktop&apos;s screenshot shortcuts can&apos;t be switched off from here. Where it answers Super+Shift+3, 4 or 5 itself, turn that off in its own settings.</source>
        <translation>لا يمكن إيقاف اختصارات لقطات الشاشة في سطح المكتب هذا من هنا. إذا كان يستجيب بنفسه لـ Super+Shift+3 أو 4 أو 5، فأوقف ذلك في إعداداته.</translation>
    </message>
    <message>
        <source>Screenshot shortcuts of the desktop</source>
        <translation>اختصارات لقطات الشاشة في سطح المكتب</translation>
    </message>
    <message>
        <source>Give Back</source>
        <translation>إعادة</translation>
    </message>
    <message>
        <source>system gnome kde plasma print conflict</source>
        <translation>نظام تعارض طباعة gnome kde plasma print</translation>
    </message>
    <message>
        <source>Borrowed now: %1</source>
        <translation>المستعار الآن: %1</translation>
    </message>
</context>
<context>
    <name>Kovrel::SoundsPage</name>
    <message>
        <source>Captures and Messages</source>
        <translation>الالتقاط والرسائل</translation>
    </message>
    <message>
        <source>Sound of captures</source>
        <translation>صوت الالتقاط</translation>
    </message>
    <message>
        <source>Pop</source>
        <translation>فرقعة</translation>
    </message>
    <message>
        <source>Camera shutter</source>
        <translation>غالق الكاميرا</translation>
    </message>
    <message>
        <source>None</source>
        <translation>بلا</translation>
    </message>
    <message>
        <source>shutter audio noise mute silent</source>
        <translation>غالق صوت ضجيج كتم صامت</translation>
    </message>
    <message>
        <source>Play</source>
        <translation>تشغيل</translation>
    </message>
    <message>
        <source>Sound of messages</source>
        <translation>صوت الرسائل</translation>
    </message>
    <message>
        <source>toast notification audio mute silent</source>
        <translation>إشعار تنبيه صوت كتم صامت</translation>
    </message>
    <message>
        <source>Volume</source>
        <translation>مستوى الصوت</translation>
    </message>
    <message>
        <source>loud quiet audio mute silent</source>
        <translation>مرتفع منخفض صوت كتم صامت</translation>
    </message>
</context>
<context>
    <name>Kovrel::StylePanel</name>
    <message>
        <source>Width</source>
        <translation>السُّمك</translation>
    </message>
    <message>
        <source>Outline</source>
        <translation>حدود</translation>
    </message>
    <message>
        <source>Translucent</source>
        <translation>شبه شفاف</translation>
    </message>
    <message>
        <source>Hatched</source>
        <translation>مهشّر</translation>
    </message>
    <message>
        <source>Filled</source>
        <translation>ممتلئ</translation>
    </message>
    <message>
        <source>Plain</source>
        <translation>بسيط</translation>
    </message>
    <message>
        <source>Outlined</source>
        <translation>بحدود خارجية</translation>
    </message>
    <message>
        <source>On a Plate</source>
        <translation>على لوحة</translation>
    </message>
    <message>
        <source>Speech Bubble</source>
        <translation>فقاعة حوار</translation>
    </message>
    <message>
        <source>Rounded Corners</source>
        <translation>زوايا مستديرة</translation>
    </message>
    <message>
        <source>Darkness</source>
        <translation>التعتيم</translation>
    </message>
    <message>
        <source>Arrow Head</source>
        <translation>رأس السهم</translation>
    </message>
</context>
<context>
    <name>Kovrel::TextCapture</name>
    <message>
        <source>No text found in the capture</source>
        <translation>لم يُعثر على نص في اللقطة</translation>
    </message>
    <message>
        <source>The text can&apos;t be read</source>
        <translation>تتعذّر قراءة النص</translation>
    </message>
    <message>
        <source>Text and QR code copied</source>
        <translation>تم نسخ النص ورمز QR</translation>
    </message>
    <message>
        <source>Extracting text…</source>
        <translation>جارٍ استخراج النص…</translation>
    </message>
</context>
<context>
    <name>Kovrel::TextPage</name>
    <message>
        <source>Languages of the text in captures</source>
        <translation>لغات النص في اللقطات</translation>
    </message>
    <message>
        <source>With none of them chosen, text is read in the languages of the desktop.</source>
        <translation>إذا لم تُختر أي منها، يُقرأ النص بلغات سطح المكتب.</translation>
    </message>
    <message>
        <source>ocr recognition read tesseract language</source>
        <translation>تعرف ضوئي قراءة لغة ocr tesseract</translation>
    </message>
    <message>
        <source>Languages</source>
        <translation>اللغات</translation>
    </message>
    <message>
        <source>Debian&apos;s packages tesseract-ocr-… bring more languages, as tesseract-ocr-fra for French. Each language that is chosen makes reading slower.</source>
        <translation>تضيف حزم دبيان التي تبدأ بـ tesseract-ocr لغات أخرى، مثل tesseract-ocr-fra للفرنسية. وكل لغة تُختار تجعل القراءة أبطأ.</translation>
    </message>
</context>
<context>
    <name>Kovrel::ToolPalette</name>
    <message>
        <source>Tools</source>
        <translation>الأدوات</translation>
    </message>
    <message>
        <source>Select</source>
        <translation>تحديد</translation>
    </message>
    <message>
        <source>Crop</source>
        <translation>اقتصاص</translation>
    </message>
    <message>
        <source>Arrow</source>
        <translation>سهم</translation>
    </message>
    <message>
        <source>Line</source>
        <translation>خط</translation>
    </message>
    <message>
        <source>Pen</source>
        <translation>قلم</translation>
    </message>
    <message>
        <source>Highlighter</source>
        <translation>قلم تمييز</translation>
    </message>
    <message>
        <source>Rectangle</source>
        <translation>مستطيل</translation>
    </message>
    <message>
        <source>Filled Rectangle</source>
        <translation>مستطيل ممتلئ</translation>
    </message>
    <message>
        <source>Ellipse</source>
        <translation>شكل بيضوي</translation>
    </message>
    <message>
        <source>Step</source>
        <translation>خطوة</translation>
    </message>
    <message>
        <source>Text</source>
        <translation>نص</translation>
    </message>
    <message>
        <source>Blur</source>
        <translation>تمويه</translation>
    </message>
    <message>
        <source>Pixelate</source>
        <translation>بكسلة</translation>
    </message>
    <message>
        <source>Black Out</source>
        <translation>تسويد</translation>
    </message>
    <message>
        <source>Spotlight</source>
        <translation>بقعة ضوء</translation>
    </message>
    <message>
        <source>Measure</source>
        <translation>قياس</translation>
    </message>
</context>
<context>
    <name>Kovrel::TrayMenu</name>
    <message>
        <source>Cancel Countdown</source>
        <translation>إلغاء العد التنازلي</translation>
    </message>
    <message>
        <source>Windows</source>
        <translation>النوافذ</translation>
    </message>
    <message>
        <source>Open Kovrel…</source>
        <translation>فتح Kovrel…</translation>
    </message>
    <message>
        <source>Quit Kovrel</source>
        <translation>إنهاء Kovrel</translation>
    </message>
    <message>
        <source>Untitled</source>
        <translation>بلا عنوان</translation>
    </message>
    <message>
        <source>Show Cards</source>
        <translation>إظهار البطاقات</translation>
    </message>
    <message>
        <source>Temporarily Hide Cards</source>
        <translation>إخفاء البطاقات مؤقتًا</translation>
    </message>
</context>
<context>
    <name>Kovrel::TryOutPage</name>
    <message>
        <source>There it is</source>
        <translation>ها هي ذي</translation>
    </message>
    <message>
        <source>Point at the card in the corner: copy, save, edit or pin the capture from there, or drag it into any program. It waits while you look.</source>
        <translation>أشر إلى البطاقة في الزاوية: انسخ اللقطة منها أو احفظها أو حرّرها أو ثبّتها، أو اسحبها إلى أي برنامج. وهي تنتظر ما دمت تنظر.</translation>
    </message>
    <message>
        <source>Your capture went where the settings send it, and into Recent Captures.</source>
        <translation>ذهبت لقطتك إلى حيث ترسلها الإعدادات، وإلى اللقطات الأخيرة.</translation>
    </message>
    <message>
        <source>Try it now</source>
        <translation>جرّب الآن</translation>
    </message>
    <message>
        <source>This window steps aside. Drag a rectangle around anything; Escape lets it be.</source>
        <translation>تتنحّى هذه النافذة. اسحب مستطيلًا حول أي شيء؛ ومفتاح Esc يلغي.</translation>
    </message>
    <message>
        <source>Press %1, or the button below. This window steps aside; drag a rectangle around anything. Escape lets it be.</source>
        <translation>اضغط %1 أو الزر أدناه. تتنحّى هذه النافذة؛ اسحب مستطيلًا حول أي شيء. ومفتاح Esc يلغي.</translation>
    </message>
</context>
<context>
    <name>Kovrel::UndoBar</name>
    <message>
        <source>Undo</source>
        <translation>تراجع</translation>
    </message>
</context>
<context>
    <name>Kovrel::UpdatesPage</name>
    <message>
        <source>Kovrel %1 is available from your package manager.</source>
        <translation>يتوفر Kovrel %1 في مدير الحزم.</translation>
    </message>
    <message>
        <source>Updates</source>
        <translation>التحديثات</translation>
    </message>
    <message>
        <source>Tell me of newer versions</source>
        <translation>أعلمني بالإصدارات الأحدث</translation>
    </message>
    <message>
        <source>Once a day Kovrel asks the package manager; it installs nothing.</source>
        <translation>يسأل Kovrel مدير الحزم مرة في اليوم، ولا يثبّت شيئًا.</translation>
    </message>
    <message>
        <source>upgrade new release version check</source>
        <translation>ترقية تحديث إصدار جديد تحقق</translation>
    </message>
</context>
<context>
    <name>MeasureSession</name>
    <message>
        <source>Tolerance %1</source>
        <translation>التفاوت %1</translation>
    </message>
    <message>
        <source>Drag for a rectangle  ·  Click to copy  ·  Wheel for tolerance  ·  U for the unit  ·  Esc to end</source>
        <translation>السحب لمستطيل  ·  النقر للنسخ  ·  العجلة للتفاوت  ·  U للوحدة  ·  Esc للإنهاء</translation>
    </message>
</context>
<context>
    <name>PatientRecogniser</name>
    <message>
        <source>The recognition of the text came to a standstill and was given up.</source>
        <translation>توقف التعرف على النص دون تقدّم فأُلغي.</translation>
    </message>
</context>
<context>
    <name>PickingFeature</name>
    <message>
        <source>Colour copied</source>
        <translation>نُسخ اللون</translation>
    </message>
    <message>
        <source>Size copied</source>
        <translation>نُسخ المقاس</translation>
    </message>
    <message>
        <source>No colour can be picked</source>
        <translation>تعذّر التقاط لون</translation>
    </message>
    <message>
        <source>The screen can&apos;t be measured</source>
        <translation>تعذّر قياس الشاشة</translation>
    </message>
</context>
<context>
    <name>PicturePrinter</name>
    <message>
        <source>The printer takes no page.</source>
        <translation>لا تقبل الطابعة أي صفحة.</translation>
    </message>
</context>
<context>
    <name>Plugins</name>
    <message>
        <source>The part %1 of Kovrel cannot be used: %2</source>
        <translation>لا يمكن استخدام الجزء %1 من Kovrel: %2</translation>
    </message>
    <message>
        <source>The part %1 of Kovrel is not installed.</source>
        <translation>الجزء %1 من Kovrel غير مثبّت.</translation>
    </message>
</context>
<context>
    <name>PreviewDuration</name>
    <message>
        <source>A preview closes on its own once this runs out. Hovering one holds its countdown, and %1 brings back the last one that closed.</source>
        <translation>تُغلق البطاقة من تلقاء نفسها عند انتهاء هذه المدة. ويتوقف العد ما دام المؤشر فوقها، ويعيد %1 آخر بطاقة أُغلقت.</translation>
    </message>
    <message>
        <source>Close after %1 seconds</source>
        <translation>إغلاق بعد %1 ث</translation>
    </message>
    <message>
        <source>Keep previews until I close them</source>
        <translation>إبقاء البطاقات حتى أغلقها</translation>
    </message>
</context>
<context>
    <name>QRCodeDetector</name>
    <message>
        <source>There is not enough memory to look for codes.</source>
        <translation>لا توجد ذاكرة كافية للبحث عن الرموز.</translation>
    </message>
</context>
<context>
    <name>QRToast</name>
    <message>
        <source>QR code copied</source>
        <translation>تم نسخ رمز QR</translation>
    </message>
    <message>
        <source>%1 QR codes copied</source>
        <translation>تم نسخ %1 من رموز QR</translation>
    </message>
    <message>
        <source>%1  (+%2 more)</source>
        <translation>⁨%1⁩  (و%2 غيره)</translation>
    </message>
</context>
<context>
    <name>SaveFailureToast</name>
    <message>
        <source>The capture could not be saved</source>
        <translation>تعذّر حفظ اللقطة</translation>
    </message>
</context>
<context>
    <name>SaveService</name>
    <message>
        <source>The folder %1 cannot be made.</source>
        <translation>يتعذّر إنشاء المجلد ⁦%1⁩.</translation>
    </message>
    <message>
        <source>The folder %1 has no name left for %2.</source>
        <translation>لم يبق في المجلد ⁦%1⁩ اسم متاح للملف ⁨%2⁩.</translation>
    </message>
    <message>
        <source>%1 is not there any more.</source>
        <translation>لم يعد ⁦%1⁩ موجودًا.</translation>
    </message>
    <message>
        <source>%1 should end in .png, .jpeg, .heic or .tiff.</source>
        <translation>يجب أن ينتهي ⁦%1⁩ بأحد الامتدادات png أو jpeg أو heic أو tiff.</translation>
    </message>
</context>
<context>
    <name>SelectionScene</name>
    <message>
        <source>Click a window to capture it  ·  Space to drag instead  ·  Esc to cancel</source>
        <translation>انقر نافذة لالتقاطها  ·  Space للسحب بدلًا من ذلك  ·  Esc للإلغاء</translation>
    </message>
    <message>
        <source>Drag to select an area  ·  Space for a window  ·  Esc to cancel</source>
        <translation>اسحب لتحديد منطقة  ·  Space لالتقاط نافذة  ·  Esc للإلغاء</translation>
    </message>
</context>
<context>
    <name>TesseractEngine</name>
    <message>
        <source>The language data for text recognition (%1) in %2 can&apos;t be used.</source>
        <translation>لا يمكن استخدام بيانات لغة التعرف على النص (%1) الموجودة في ⁦%2⁩.</translation>
    </message>
</context>
<context>
    <name>TesseractRecogniser</name>
    <message>
        <source>Install the package tesseract-ocr-eng, or that of another language: there is no language data for text recognition.</source>
        <translation>ثبّت الحزمة tesseract-ocr-eng أو حزمة لغة أخرى: لا توجد بيانات لغة للتعرف على النص.</translation>
    </message>
    <message>
        <source>There is no picture to read.</source>
        <translation>لا توجد صورة لقراءتها.</translation>
    </message>
</context>
<context>
    <name>Toasts</name>
    <message>
        <source>Saved to %1</source>
        <translation>تم الحفظ في %1</translation>
    </message>
</context>
</TS>
